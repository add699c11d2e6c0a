#pragma once

#include "ports/messages.h"
#include "shell/main_window/color_value.h"
#include "shell/main_window/preview_pane.h"

#include <QColor>
#include <QFont>
#include <QPagedPaintDevice>

class QWidget;

namespace veldrane {

// The color in which a line of this one is printed: the system's are gray, and what is too light for paper, chosen for
// a dark background, is darkened.
[[nodiscard]] QColor InkOf(Color color);

// Draws the lines onto pages: in their colours and weight, a line that is too wide broken where the page ends, the
// preview's title and the page's number at the foot. The system's colours are gray, as on any paper. Returns the number
// of pages; 0 if the device can't be drawn on, or gives no further page.
int PrintLines(const PreviewPane& pane, const QFont& font, QPagedPaintDevice& device);

// Asks for a printer (dialog "printDialog") over the window and prints. A failure is told.
void AskAndPrint(const PreviewPane& pane, const QFont& font, Messages& messages, QWidget& window);

} // namespace veldrane
