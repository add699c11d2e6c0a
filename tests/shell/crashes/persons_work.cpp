#include "persons_work.h"

#include "support/child_process.h"

#include <csignal>

namespace veldrane::testing {

void PersonsWork::Crash(int version) const
{
    const int end = ExitCodeOf([&] {
        DiskProgram program(Folder);
        program.Open();
        program.ChangeTo(version);
        program.TickToAutosave();
        return raise(SIGKILL);
    });
    ASSERT_EQ(end, kKilled + SIGKILL);
}

} // namespace veldrane::testing
