#pragma once

#include "ports/loading_form.h"

#include <string>
#include <utility>
#include <vector>

namespace veldrane::testing {

// Keeps what the form went through: "shown", "hidden", and each status in between.
class RecordedLoadingForm : public LoadingForm
{
  public:
    void SetStatus(const std::string& text) override { Log.push_back(text); }

    Visibility Show(Visibility visibility) override
    {
        if (visibility != Current)
            Log.emplace_back(visibility == Visibility::Shown ? "shown" : "hidden");
        return std::exchange(Current, visibility);
    }

    Visibility Current = Visibility::Hidden;
    std::vector<std::string> Log;
};

} // namespace veldrane::testing
