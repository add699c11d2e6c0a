#pragma once

#include "model/class.h"
#include "projectfile/line_cursor.h"

// Each reads one block that a class owns into the class. The cursor stands on the opening line before and on the
// closing line afterwards. A bracket line is known by its beginning, whatever follows and however it is indented, while
// a name is taken from a fixed place of the opening line as it stands.
//
// They throw RuntimeError if a number or a Boolean does not convert, if a lookup field or an argument is there twice,
// and if the text ends within the block; the class then lacks the block.
namespace veldrane::project_format {

// A key or a column that is there already is dropped in silence.
void ReadRelationship(LineCursor& lines, KZMClass& owner);
void ReadKey(LineCursor& lines, KZMClass& owner);

// A method, event or property whose name another member of the class has is dropped in silence.
void ReadMethod(LineCursor& lines, KZMClass& owner);
void ReadEvent(LineCursor& lines, KZMClass& owner);

// The names of lookup fields are entered before the property's own, and stay if the property is dropped.
void ReadProperty(LineCursor& lines, KZMClass& owner);

} // namespace veldrane::project_format
