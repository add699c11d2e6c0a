#pragma once

#include "model/signal.h"
#include "projectfile/file_management.h"

#include <cstdint>
#include <string>
#include <vector>

namespace veldrane {

inline constexpr char kReadyStatus[] = "Ready...";

// The bar that lies over the panel "Status" while a file is read or written.
struct StatusProgress
{
    std::int32_t Minimum = 0;
    std::int32_t Maximum = 100;
    std::int32_t Value = 0; // never outside its bounds
    bool Visible = false;
};

// The status bar of the main window: its panels by their names, and the bar.
class StatusBar
{
  public:
    [[nodiscard]] const std::string& Icon() const { return icon_; } // the icon's name; "" for none
    [[nodiscard]] const std::string& Status() const { return status_; }
    [[nodiscard]] const std::string& adPanel() const { return adPanel_; }
    [[nodiscard]] const StatusProgress& Progress() const { return progress_; }

    // Follows what the file management does, which must outlive this object or be followed by another.
    void Follow(TTCFileManagement& files);

    void SetStatus(const std::string& text);

    // Shows in "adPanel" which project is open.
    void SetProjectName(const std::string& name);

    // Takes picture and bar away: after a file was read or written, well or not.
    void EndProgress();

    Signal<> Changed; // something of it is to be shown anew

  private:
    void SavingProject(std::int32_t value);
    void SetMinMaxProgress(std::int32_t minimum, std::int32_t maximum, std::int32_t value);

    std::string icon_;
    std::string status_ = kReadyStatus;
    std::string adPanel_;
    StatusProgress progress_;
    std::vector<Connection> connections_;
};

// Shows a text in the panel "Status" for as long as it lives, and then that the program is ready.
class StatusWhile
{
  public:
    StatusWhile(StatusBar& bar, const std::string& text) : bar_(bar) { bar_.SetStatus(text); }
    ~StatusWhile() { bar_.SetStatus(kReadyStatus); }
    StatusWhile(const StatusWhile&) = delete;
    StatusWhile& operator=(const StatusWhile&) = delete;

  private:
    StatusBar& bar_;
};

} // namespace veldrane
