#pragma once

namespace veldrane {

// Which panes of the main window are shown.
struct PaneManagement
{
    bool pmDatasourceVisible = true;
    bool pmPreviewVisible = true;
    bool pmProjectVisible = true;
    bool pmNavigatorVisible = true;
};

} // namespace veldrane
