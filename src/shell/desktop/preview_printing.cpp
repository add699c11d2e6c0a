#include "shell/desktop/preview_printing.h"

#include "shell/desktop/qt_color.h"
#include "shell/desktop/qt_text.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QTextLayout>

namespace veldrane {
namespace {

using namespace Qt::StringLiterals;

constexpr int kLightestInk = 130; // of 255

// Lines onto pages, from the top of the first.
class PageWriter
{
  public:
    PageWriter(QPainter& painter, QPagedPaintDevice& device, QString title)
        : painter_(painter), device_(device), title_(std::move(title)), width_(device.width()),
          footHeight_(2 * QFontMetricsF(painter.font(), &device).lineSpacing()), bottom_(device.height() - footHeight_)
    {}

    void Write(const QString& text, const QFont& font, const QColor& color)
    {
        QTextLayout layout(text, font, &device_);
        QTextOption option;
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        layout.setTextOption(option);
        layout.beginLayout();
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine())
            Place(line, color);
        layout.endLayout();
    }

    int End()
    {
        DrawFoot();
        return hasAllPages_ ? page_ : 0;
    }

  private:
    void Place(QTextLine& line, const QColor& color)
    {
        line.setLineWidth(width_);
        if (y_ + line.height() > bottom_ && y_ > 0)
            StartPage();
        painter_.setPen(color);
        line.draw(&painter_, QPointF(0, y_ - line.y()));
        y_ += line.height();
    }

    void StartPage()
    {
        DrawFoot();
        hasAllPages_ = device_.newPage() && hasAllPages_;
        ++page_;
        y_ = 0;
    }

    void DrawFoot()
    {
        const QRectF foot(0, bottom_, width_, footHeight_);
        painter_.setPen(Qt::black);
        painter_.drawText(foot, Qt::AlignLeft | Qt::AlignBottom, title_);
        painter_.drawText(foot, Qt::AlignRight | Qt::AlignBottom, QString::number(page_));
    }

    QPainter& painter_;
    QPagedPaintDevice& device_;
    QString title_;
    qreal width_;
    qreal footHeight_;
    qreal bottom_;
    qreal y_ = 0;
    int page_ = 1;
    bool hasAllPages_ = true;
};

} // namespace

QColor InkOf(Color color)
{
    QColor ink = IsSystemColor(color) ? QColor(Qt::darkGray) : ColorToQt(color, QGuiApplication::palette());
    if (ink.lightness() > kLightestInk)
        ink.setHsl(ink.hslHue(), ink.hslSaturation(), kLightestInk);
    return ink;
}

int PrintLines(const PreviewPane& pane, const QFont& font, QPagedPaintDevice& device)
{
    QPainter painter;
    if (!painter.begin(&device))
        return 0;
    painter.setFont(font);
    PageWriter pages(painter, device, NameToQt(pane.Title()));
    for (std::size_t row = 0; row < pane.Count(); ++row) {
        const TTCOutput& line = pane.Row(row);
        QFont weighed = font;
        weighed.setBold(font.bold() || line.Bold);
        pages.Write(NameToQt(line.LineText), weighed, InkOf(line.ForeColor));
    }
    return pages.End();
}

void AskAndPrint(const PreviewPane& pane, const QFont& font, Messages& messages, QWidget& window)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(NameToQt(pane.Title()));
    QPrintDialog dialog(&printer, &window);
    dialog.setObjectName(u"printDialog"_s);
    dialog.setWindowTitle(u"Print Preview"_s);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange, false); // all of them are printed
    if (dialog.exec() != QDialog::Accepted)
        return;
    if (PrintLines(pane, font, printer) == 0 || printer.printerState() == QPrinter::Error)
        messages.Tell(
            "Print Preview",
            "The preview could not be printed: the printer, or the file that it prints to, can't be written to.",
            MessageIcon::Warning);
}

} // namespace veldrane
