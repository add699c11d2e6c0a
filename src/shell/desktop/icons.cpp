#include "shell/desktop/icons.h"

#include "shell/desktop/qt_text.h"

#include <QFile>

// What a static library has compiled in is known once it is told of. The macro wants to stand outside a namespace.
static void TellOfPictures()
{
    Q_INIT_RESOURCE(icons);
}

namespace veldrane {
namespace {

using namespace Qt::StringLiterals;

constexpr int kCursorSize = 32;
constexpr int kCursorTip = 2;

QString PathOf(std::string_view name)
{
    static const bool kIsTold = (TellOfPictures(), true);
    Q_UNUSED(kIsTold)
    return u":/icons/"_s + NameToQt(name) + u".svg"_s;
}

} // namespace

QIcon Icon(std::string_view name)
{
    const QString path = PathOf(name);
    return QFile::exists(path) ? QIcon(path) : QIcon();
}

QCursor PictureCursor(std::string_view name)
{
    return QCursor(Icon(name).pixmap(kCursorSize), kCursorTip, kCursorTip);
}

const QIcon& IconSet::Of(std::string_view name)
{
    const QString key = NameToQt(name);
    const auto found = loaded_.constFind(key);
    return found != loaded_.constEnd() ? *found : *loaded_.insert(key, Icon(name));
}

} // namespace veldrane
