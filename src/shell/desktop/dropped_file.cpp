#include "shell/desktop/dropped_file.h"

#include "shell/desktop/qt_text.h"

#include <QUrl>

namespace veldrane {

std::string DroppedFile(const QMimeData* data)
{
    if (data == nullptr || data->urls().size() != 1)
        return "";
    return FromQt(data->urls().constFirst().toLocalFile());
}

} // namespace veldrane
