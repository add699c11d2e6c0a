#pragma once

#include <QCursor>
#include <QHash>
#include <QIcon>

#include <string>
#include <string_view>

namespace veldrane {

// The picture of this name, crisp at every size; an empty icon for "" and for a name without a picture, so that what is
// missing costs the picture alone. The names are those of nodes, rows and preview lines ("TableClass", "SP", ...) and
// of tools ("Save", "Find", ...); they are the names of the files in icons/.
[[nodiscard]] QIcon Icon(std::string_view name);

// A pointer that carries the picture, its tip where the arrow's is: "DragTable" and "DragTableNoDrop".
[[nodiscard]] QCursor PictureCursor(std::string_view name);

// Icons that are asked for again and again, each loaded once: for models with thousands of rows.
class IconSet
{
  public:
    [[nodiscard]] const QIcon& Of(std::string_view name);

  private:
    QHash<QString, QIcon> loaded_;
};

} // namespace veldrane
