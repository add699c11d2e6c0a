#pragma once

#include "golden_projects.h"
#include "opened_project.h"
#include "program.h"

namespace veldrane::testing {

// The project of a golden project file.
class OpenedGolden : public OpenedProject
{
  public:
    explicit OpenedGolden(const GoldenProject& golden)
        : OpenedProject("FOLDER/" + golden.ProjectFile(), BytesOf(golden.Path(golden.ProjectFile())))
    {}
};

} // namespace veldrane::testing
