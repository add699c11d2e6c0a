#include "shell/desktop/icons.h"

#include "generator/line_class.h"
#include "screenshots.h"
#include "shell/main_window/menu_states.h"

#include <QDir>
#include <QGridLayout>
#include <QImage>
#include <QLabel>

#include <gtest/gtest.h>

#include <set>

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;

// Every file of the folder, without its ending.
std::set<std::string> Drawn()
{
    std::set<std::string> names;
    const QDir folder(QStringLiteral(VELDRANE_SOURCE_DIR "/src/shell/desktop/icons"));
    for (const QString& file : folder.entryList({u"*.svg"_s}))
        names.insert(file.chopped(4).toStdString());
    return names;
}

// The names that the tree, the lists, the preview and the connection dialog give.
const std::set<std::string> kNames{
    "Access",     "Class",        "ClosedFolder", "Collection",  "DSN",         "DragTable",  "DragTableNoDrop",
    "Driver",     "Edit",         "Event",        "EventPlus",   "Field",       "FieldAuto",  "FieldKey",
    "File",       "Form",         "Function",     "Globe",       "IdentityCol", "Lookup",     "MTS",
    "MethodPlus", "Module",       "OpenFolder",   "ParentChild", "PlusEvent",   "PlusMethod", "Project",
    "Property",   "PropertyPlus", "Root",         "SP",          "Save",        "Server",     "Sub",
    "Table",      "TableClass",   "Variables",    "View",
};

double Coverage(const QImage& picture)
{
    int drawn = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            drawn += qAlpha(picture.pixel(x, y)) > 127 ? 1 : 0;
    }
    return static_cast<double>(drawn) / (picture.width() * picture.height());
}

TEST(Icons, ShowAPictureForEachNameThatIsUsed)
{
    for (const std::string& name : kNames) {
        const QIcon icon = Icon(name);
        ASSERT_FALSE(icon.isNull()) << name;
        for (const int size : {16, 32}) {
            const QImage picture = icon.pixmap(size).toImage();
            EXPECT_EQ(picture.size(), QSize(size, size)) << name;
            EXPECT_GT(Coverage(picture), 0.1) << name;
        }
    }
}

TEST(Icons, ShowAPictureForEachToolThatHasOne)
{
    for (const Tool& tool : Tools())
        EXPECT_EQ(Icon(tool.Icon).isNull(), tool.Icon.empty()) << tool.Name;
}

TEST(Icons, ShowAPictureForEachLineThatHasOne)
{
    for (int number = 0; number <= static_cast<int>(LineClass::Key); ++number) {
        const std::string_view name = LookOf(static_cast<LineClass>(number), {}).Icon;
        EXPECT_EQ(Icon(name).isNull(), name.empty()) << name;
    }
}

TEST(Icons, AreAllCompiledIn)
{
    for (const std::string& name : Drawn())
        EXPECT_FALSE(Icon(name).isNull()) << name;
}

TEST(Icons, AreEmptyForANameWithoutAPicture)
{
    EXPECT_TRUE(Icon("").isNull());
    EXPECT_TRUE(Icon("Nothing").isNull());
    IconSet icons;
    EXPECT_TRUE(icons.Of("Nothing").isNull());
    EXPECT_EQ(icons.Of("Table").cacheKey(), icons.Of("Table").cacheKey());
}

TEST(Icons, CarryATableWithThePointer)
{
    EXPECT_EQ(PictureCursor("DragTable").pixmap().width(), 32);
    EXPECT_NE(PictureCursor("DragTable").pixmap().toImage(), PictureCursor("DragTableNoDrop").pixmap().toImage());
}

TEST(Icons, StandSideBySide)
{
    QWidget sheet;
    sheet.setAutoFillBackground(true);
    QGridLayout grid(&sheet);
    int cell = 0;
    for (const std::string& name : Drawn()) {
        int column = cell % 5 * 4;
        for (const int size : {16, 32, 64}) {
            auto* picture = new QLabel(&sheet);
            picture->setPixmap(Icon(name).pixmap(size));
            grid.addWidget(picture, cell / 5, column++);
        }
        grid.addWidget(new QLabel(QString::fromStdString(name), &sheet), cell / 5, column);
        ++cell;
    }
    Photograph(sheet, "icons");
}

} // namespace
} // namespace veldrane::testing
