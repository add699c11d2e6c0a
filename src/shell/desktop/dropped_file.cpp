#include "shell/desktop/dropped_file.h"

#include "shell/desktop/qt_text.h"

#include <QFileInfo>
#include <QUrl>

namespace veldrane {

std::string DroppedFile(const QMimeData* data)
{
    if (data == nullptr || data->urls().size() != 1)
        return "";
    const QString path = data->urls().constFirst().toLocalFile();
    return QFileInfo(path).isDir() ? "" : FromQt(path);
}

} // namespace veldrane
