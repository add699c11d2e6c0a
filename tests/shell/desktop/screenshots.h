#pragma once

#include <QWidget>

#include <string>

namespace veldrane::testing {

enum class Shades
{
    Light,
    Dark,
};

// All windows in these shades, as long as it lives.
class ShadesWhile
{
  public:
    explicit ShadesWhile(Shades shades);
    ~ShadesWhile();
    ShadesWhile(const ShadesWhile&) = delete;
    ShadesWhile& operator=(const ShadesWhile&) = delete;
};

// Draws the window in both shades, shown for it if need be, and keeps the pictures as NAME-light.png and NAME-dark.png
// in the folder $VELDRANE_SCREENSHOTS; without that variable they are drawn and dropped. The test fails if nothing is
// drawn or a picture can't be written, and if a person at the keyboard would be lost in the window: two of the controls
// that are seen have one access key, one has no name, or the Tab key jumps about.
void Photograph(QWidget& window, const std::string& name);

} // namespace veldrane::testing
