#include "shell/desktop/product_text.h"

#include "generator/generation_settings.h"
#include "shell/desktop/qt_text.h"

namespace veldrane {
namespace {

using namespace Qt::StringLiterals;

constexpr double kTitleScale = 1.4;

} // namespace

void ShowTitle(QLabel& label)
{
    QFont font = label.font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * kTitleScale);
    label.setFont(font);
    label.setText(NameToQt(kAppTitle));
}

QString VersionLine()
{
    return u"Version "_s + QStringLiteral(VELDRANE_VERSION);
}

} // namespace veldrane
