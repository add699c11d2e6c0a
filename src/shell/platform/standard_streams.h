#pragma once

namespace veldrane {

// Takes the numbers of standard input, output and error where the program was started without them. Otherwise the next
// file that is opened gets the number, and what is meant for the terminal goes into that file. Reading and writing go
// on failing, as they do for a stream that is closed. Called before anything is opened.
void HoldStandardStreams();

} // namespace veldrane
