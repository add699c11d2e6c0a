#pragma once

namespace veldrane::floor_probe {

// As little as `define` and `generate` write: makes in the folder the files that a run left, the project file among
// them, with the same bytes. Every line is composed in a buffer of its own, appended to the text of its file, and each
// file is written by one call. One sync of the file system stands at the end, as in a run. What it does without are the
// private names and the renames of a run, and the second sync that `define` makes for the project file.
//
// The lines come from one file, the pack, that is mapped into memory: reading the finished files one by one would
// burden the floor with work that no run has. Form of a pack, for each file: its name, LF, its size in bytes, LF, its
// bytes.
//
// Throws std::runtime_error with the file that fails.
void WriteFilesOfPack(const char* pack, const char* folder);

} // namespace veldrane::floor_probe
