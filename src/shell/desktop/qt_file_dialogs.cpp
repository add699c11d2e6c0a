#include "shell/desktop/qt_file_dialogs.h"

#include "shell/desktop/file_filter.h"
#include "shell/desktop/qt_text.h"
#include "shell/desktop/room_for_dialog.h"

#include <QFileInfo>

namespace veldrane {
namespace {

using namespace Qt::StringLiterals;

QString StartFolder(const FileDialogRequest& request, const QString& last)
{
    if (!request.StartFolder.empty())
        return NameToQt(request.StartFolder);
    const QFileInfo proposed(NameToQt(request.DefaultName));
    return proposed.isAbsolute() ? proposed.absolutePath() : last;
}

} // namespace

std::optional<std::string> QtFileDialogs::AskForFileToOpen(const FileDialogRequest& request)
{
    return Ask(request, QFileDialog::AcceptOpen);
}

std::optional<std::string> QtFileDialogs::AskForFileToSave(const FileDialogRequest& request)
{
    return Ask(request, QFileDialog::AcceptSave);
}

std::optional<std::string> QtFileDialogs::Ask(const FileDialogRequest& request, QFileDialog::AcceptMode mode)
{
    const RoomForDialog room;
    QFileDialog dialog(WindowInFront(), NameToQt(request.Title), StartFolder(request, lastFolder_));
    dialog.setObjectName(u"fileDialog"_s);
    dialog.setAcceptMode(mode);
    dialog.setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    if (const QStringList filters = NameFilters(request.Filter); !filters.isEmpty())
        dialog.setNameFilters(filters);
    dialog.setDefaultSuffix(NameToQt(request.DefaultExtension));
    if (!request.DefaultName.empty())
        dialog.selectFile(NameToQt(request.DefaultName));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    const QString path = dialog.selectedFiles().constFirst();
    lastFolder_ = QFileInfo(path).absolutePath();
    return FromQt(path);
}

} // namespace veldrane
