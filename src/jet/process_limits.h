#pragma once

namespace veldrane::jet {

// Bounds the process, so that a damaged file costs seconds and no more: 512 MB of address space, 5 seconds of processor
// time, 64 MB of a file that the answer may be directed to, no process or thread beside it, no core dump, and the end
// as soon as the parent ends. False if the system refuses any of it.
[[nodiscard]] bool LimitProcess();

// What libmdb prints goes nowhere, unless VELDRANE_JET_MESSAGES is set, which leaves it on standard error. The
// environment, from which libmdb and glib take options, is emptied.
//
// Returns the descriptor on which the answer goes; nothing else does. -1 on failure.
[[nodiscard]] int KeepAnswerApart();

} // namespace veldrane::jet
