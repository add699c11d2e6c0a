#pragma once

#include "model/project.h"
#include "projectfile/line_stream.h"

namespace veldrane {

// Reads the section of the project and stops right behind "End Project". A line that is not there leaves its member
// as it is; an unknown key is passed over. Blanks around a value are lost. The connection string is set last.
//
// Throws RuntimeError if the stream has no such section, or an empty one, and if a number or a Boolean does not
// convert: what stands before it is assigned by then.
void ReadProjectInfo(LineStream& stream, TTCProject& project);

} // namespace veldrane
