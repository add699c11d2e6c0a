#pragma once

#include "shell/desktop/loading_window.h"
#include "shell/main_window/catalog_reading.h"

namespace veldrane {

// The loading window over a reading that lasts: how many rows were read, and the button that ends it. It comes and goes
// by itself; while it is shown, events are served whenever there is something new, and no other window takes any.
class ReadingWindow
{
  public:
    // The reading outlives this.
    ReadingWindow(CatalogReading& reading, QWidget* parent);

  private:
    void Refresh();

    CatalogReading& reading_;
    LoadingWindow window_;
    Connection changed_;
};

} // namespace veldrane
