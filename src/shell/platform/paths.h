#pragma once

#include <string>

// Where the program keeps what is its own, without a slash at the end. Variables that are empty or hold no full path
// are passed over. Nothing is made here: see MakeFolder. Throws RuntimeError (75) if the user has no home folder.
namespace veldrane {

// $XDG_CONFIG_HOME/veldrane, else ~/.config/veldrane.
[[nodiscard]] std::string ConfigFolder();

// $VELDRANE_SETTINGS, else settings.ini in the configuration folder.
[[nodiscard]] std::string SettingsPath();

// $XDG_STATE_HOME/veldrane, else ~/.local/state/veldrane: Compile.log and its like.
[[nodiscard]] std::string StateFolder();

// For copies that must outlive a crash: "recovery" in the state folder.
[[nodiscard]] std::string RecoveryFolder();

// The folder of the program that runs, "" if the system does not tell it.
[[nodiscard]] std::string ProgramFolder();

// Whether both paths lead to the same folder, by whatever road. False if one of them leads nowhere. Never throws.
[[nodiscard]] bool IsSameFolder(const std::string& first, const std::string& second);

// The path from the root, of a file or folder that need not be there, without "." and ".." where that leads to the same
// place.
[[nodiscard]] std::string PathFromRoot(const std::string& path);

// Whether the path leads to "/" or to the home folder of any user, $HOME included. Never throws.
[[nodiscard]] bool IsRootOrHomeFolder(const std::string& path);

// Makes the folder and those above it that are missing, for this user alone (0700). Throws RuntimeError (75) naming
// the folder.
void MakeFolder(const std::string& path);

} // namespace veldrane
