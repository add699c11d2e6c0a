#include "shell/platform/desktop_library.h"

#include "text/runtime_error.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <dlfcn.h>

namespace veldrane {
namespace {

constexpr std::array kDisplayVariables{"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};

bool IsSet(const char* variable)
{
    const char* value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

[[noreturn]] void Refuse(const std::string& sentence)
{
    throw RuntimeError(error_number::kFileNotFound, "Veldrane", sentence);
}

[[noreturn]] void RefuseWithReason()
{
    const char* reason = dlerror();
    Refuse("The windows of the program could not be loaded (" + std::string(reason == nullptr ? "" : reason) +
           "). They need Qt 6; on Debian: apt install libqt6widgets6 libqt6svg6 libqt6printsupport6");
}

} // namespace

void* DesktopFunction(const std::string& folder, const char* name)
{
    if (std::none_of(kDisplayVariables.begin(), kDisplayVariables.end(), IsSet))
        Refuse(
            "There is no display to open a window on: neither DISPLAY nor WAYLAND_DISPLAY is set. What works without "
            "one, veldrane --help tells.");
    void* library = dlopen((folder + "/" + kDesktopLibrary).c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (library == nullptr)
        RefuseWithReason();
    void* function = dlsym(library, name);
    if (function == nullptr)
        RefuseWithReason();
    return function;
}

} // namespace veldrane
