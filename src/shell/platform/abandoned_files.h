#pragma once

#include <string>

namespace veldrane {

// Removes from the folder the private files whose writer no longer runs: plain files of this user whose lock is free,
// and nothing else. Throws RuntimeError (53 or 75) if the folder can't be read or such a file can't be removed.
void RemoveAbandonedFiles(const std::string& folder);

} // namespace veldrane
