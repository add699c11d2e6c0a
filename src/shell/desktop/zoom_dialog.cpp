#include "shell/desktop/zoom_dialog.h"

#include "shell/desktop/icons.h"
#include "ui_frm_zoom.h"

#include <QFontInfo>

#include <algorithm>

namespace veldrane {
namespace {

constexpr double kFirstFactor = 1.75;
constexpr double kStep = 1.2;
constexpr double kSmallest = 6; // points
constexpr double kLargest = 96;

} // namespace

ZoomDialog::ZoomDialog(QListView& preview, QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::frmZoom>()), preview_(preview)
{
    ui_->setupUi(this);
    setWindowIcon(Icon("Zoom"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    ui_->lstZoom->setModel(preview.model());
    ui_->lstZoom->setPalette(preview.palette());
    ui_->lstZoom->setFont(preview.font());
    preview.installEventFilter(this);
    ChangeSize(kFirstFactor);
    ui_->lstZoom->setCurrentIndex(preview.currentIndex());
    connect(ui_->cmdSmaller, &QPushButton::clicked, this, [this] { ChangeSize(1 / kStep); });
    connect(ui_->cmdLarger, &QPushButton::clicked, this, [this] { ChangeSize(kStep); });
    connect(ui_->cmdClose, &QPushButton::clicked, this, &QDialog::accept);
}

ZoomDialog::~ZoomDialog() = default;

bool ZoomDialog::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == &preview_ && event->type() == QEvent::PaletteChange)
        ui_->lstZoom->setPalette(preview_.palette());
    return QDialog::eventFilter(watched, event);
}

void ZoomDialog::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    ui_->lstZoom->scrollTo(ui_->lstZoom->currentIndex(), QAbstractItemView::PositionAtCenter);
}

void ZoomDialog::ChangeSize(double factor)
{
    QFont font = ui_->lstZoom->font();
    font.setPointSizeF(std::clamp(QFontInfo(font).pointSizeF() * factor, kSmallest, kLargest));
    ui_->lstZoom->setFont(font);
    const int height = QFontMetrics(font).height();
    ui_->lstZoom->setIconSize(QSize(height, height));
}

} // namespace veldrane
