#include "screenshots.h"

#include "access_keys.h"
#include "keyboard_way.h"

#include <QApplication>
#include <QDir>
#include <QPalette>
#include <QPixmap>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;

struct Shade
{
    QPalette::ColorRole Role;
    QRgb Color;
};

constexpr QRgb kDarkWindow = 0xFF2B2D31;
constexpr QRgb kDarkButton = 0xFF35383D;

constexpr std::array kDark{
    Shade{QPalette::Window, kDarkWindow},
    Shade{QPalette::WindowText, 0xFFE4E6EA},
    Shade{QPalette::Base, 0xFF1E1F22},
    Shade{QPalette::AlternateBase, 0xFF26282C},
    Shade{QPalette::Text, 0xFFE4E6EA},
    Shade{QPalette::Button, kDarkButton},
    Shade{QPalette::ButtonText, 0xFFE4E6EA},
    Shade{QPalette::BrightText, 0xFFFF6B6B},
    Shade{QPalette::Highlight, 0xFF2F65CA},
    Shade{QPalette::HighlightedText, 0xFFFFFFFF},
    Shade{QPalette::PlaceholderText, 0xFF8A8F98},
    Shade{QPalette::ToolTipBase, 0xFF35383D},
    Shade{QPalette::ToolTipText, 0xFFE4E6EA},
    Shade{QPalette::Link, 0xFF7FB2EE},
};
constexpr QRgb kDarkDisabled = 0xFF7A7F87;

QPalette DarkPalette()
{
    QPalette palette(QColor::fromRgb(kDarkButton), QColor::fromRgb(kDarkWindow)); // edges and shadows follow from both
    for (const Shade& shade : kDark)
        palette.setColor(shade.Role, QColor::fromRgb(shade.Color));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor::fromRgb(kDarkDisabled));
    palette.setColor(QPalette::Disabled, QPalette::Base, palette.color(QPalette::Window));
    return palette;
}

void Keep(QWidget& window, const std::string& name)
{
    const QPixmap picture = window.grab();
    EXPECT_FALSE(picture.isNull()) << name;
    const QString folder = qEnvironmentVariable("VELDRANE_SCREENSHOTS");
    if (folder.isEmpty())
        return;
    EXPECT_TRUE(QDir().mkpath(folder));
    const QString path = QDir(folder).filePath(QString::fromStdString(name) + u".png"_s);
    EXPECT_TRUE(picture.save(path)) << path.toStdString();
}

} // namespace

ShadesWhile::ShadesWhile(Shades shades)
{
    QApplication::setPalette(shades == Shades::Dark ? DarkPalette() : QPalette());
}

ShadesWhile::~ShadesWhile()
{
    QApplication::setPalette(QPalette());
}

void Photograph(QWidget& window, const std::string& name)
{
    if (!window.isVisible())
        window.show();
    EXPECT_THAT(CollidingAccessKeys(window), ::testing::IsEmpty()) << name;
    EXPECT_THAT(NamelessControls(window), ::testing::IsEmpty()) << name;
    EXPECT_THAT(StepsAgainstReading(window), ::testing::IsEmpty()) << name;
    for (const auto& [shades, ending] : {std::pair{Shades::Light, "-light"}, std::pair{Shades::Dark, "-dark"}}) {
        const ShadesWhile shown(shades);
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        Keep(window, name + ending);
    }
}

} // namespace veldrane::testing
