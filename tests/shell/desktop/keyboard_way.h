#pragma once

#include <QWidget>

#include <string>
#include <vector>

namespace veldrane::testing {

// The controls that the window shows now, that take the keyboard, and of which a screen reader could not tell what they
// are for: neither a text of theirs nor a label nor an accessible name does. Each by the name of its widget.
[[nodiscard]] std::vector<std::string> NamelessControls(QWidget& window);

// Where the Tab key goes against the way one reads, down a column and then down the next: to a control that lies above
// the one before it, or on the same line to the left of it. Each as "from -> to". From pane to pane it may go any way.
[[nodiscard]] std::vector<std::string> StepsAgainstReading(QWidget& window);

} // namespace veldrane::testing
