#pragma once

#include "ports/messages.h"
#include "shell/main_window/preview_pane.h"

#include <QFont>
#include <QPagedPaintDevice>

class QWidget;

namespace veldrane {

// Draws the lines onto pages: in their colours and weight, a line that is too wide broken where the page ends, the
// preview's title and the page's number at the foot. The system's colours are gray, as on any paper. Returns the number
// of pages; 0 if the device can't be drawn on.
int PrintLines(const PreviewPane& pane, const QFont& font, QPagedPaintDevice& device);

// Asks for a printer (dialog "printDialog") over the window and prints. A failure is told.
void AskAndPrint(const PreviewPane& pane, const QFont& font, Messages& messages, QWidget& window);

} // namespace veldrane
