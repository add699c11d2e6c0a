#include "shell/desktop/dialog_places.h"

#include "shell/desktop/screen_areas.h"
#include "shell/main_window/dialog_place.h"

#include <QCoreApplication>
#include <QEvent>

#include <algorithm>
#include <array>

namespace veldrane {
namespace {

using namespace Qt::StringLiterals;

constexpr std::array kAsLargeAsTheirWords{"frmAbout"_L1, "frmFile"_L1, "frmWarning"_L1};

// The program's own, not those of Qt.
bool IsForm(const QObject& object)
{
    return object.isWidgetType() && object.objectName().startsWith("frm"_L1);
}

bool KeepsItsSize(const QDialog& dialog)
{
    return std::find(kAsLargeAsTheirWords.begin(), kAsLargeAsTheirWords.end(), dialog.objectName()) !=
           kAsLargeAsTheirWords.end();
}

} // namespace

DialogPlaces::DialogPlaces(RegistryAccess& settings, ErrorReport& errors) : settings_(settings), errors_(errors)
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool DialogPlaces::eventFilter(QObject* watched, QEvent* event)
{
    auto* dialog = IsForm(*watched) ? qobject_cast<QDialog*>(watched) : nullptr;
    if (dialog == nullptr)
        return false;
    if (event->type() == QEvent::WindowActivate)
        isTouched_.insert(dialog, isTouched_.value(dialog));
    else if (event->spontaneous())
        FollowDesktop(*dialog, event->type());
    else
        FollowProgram(*dialog, event->type());
    return false;
}

// It places a dialog that opens, too; once the dialog was active, a person is behind it.
void DialogPlaces::FollowDesktop(const QDialog& dialog, QEvent::Type type)
{
    if ((type == QEvent::Move || type == QEvent::Resize) && isTouched_.contains(&dialog))
        isTouched_.insert(&dialog, true);
}

void DialogPlaces::FollowProgram(QDialog& dialog, QEvent::Type type)
{
    if (type == QEvent::Show)
        Restore(dialog);
    else if (type == QEvent::Hide && isTouched_.take(&dialog))
        Keep(dialog);
}

void DialogPlaces::Restore(QDialog& dialog) const
{
    const auto place = ReadDialogPlace(settings_, dialog.objectName().toStdString(), ScreenAreas());
    if (!place)
        return;
    const QSize size = KeepsItsSize(dialog) ? dialog.size() : QSize(place->Width, place->Height);
    dialog.setGeometry(QRect(QPoint(place->Left, place->Top), size));
}

void DialogPlaces::Keep(const QDialog& dialog) const
{
    const QRect now = dialog.isMaximized() ? dialog.normalGeometry() : dialog.geometry();
    WriteDialogPlace(settings_, errors_, dialog.objectName().toStdString(),
                     {.Left = now.left(), .Top = now.top(), .Width = now.width(), .Height = now.height()});
}

} // namespace veldrane
