#pragma once

#include "model/signal.h"
#include "ports/clock.h"
#include "ports/reading_watch.h"

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>

namespace veldrane {

inline constexpr char kReadingStatus[] = "Reading the data source...";
inline constexpr char kCancelledStatus[] = "The reading was cancelled: nothing has changed.";

// The progress of a long reading of a data source, and the person's means to end it. It is handed to the data sources
// as their watch, and takes notice while a Session lives: outside of one, nothing is shown, and nothing can be
// cancelled.
class CatalogReading : public ReadingWatch
{
  public:
    static constexpr std::chrono::milliseconds kPatience{500}; // a reading that is over by then is not shown
    static constexpr std::chrono::milliseconds kInterval{50};  // from one Changed to the next

    // The clock outlives this.
    explicit CatalogReading(const Clock& time) : time_(time) {}

    // One reading: the lists of tables and procedures, for example. One within another belongs to that.
    class Session
    {
      public:
        explicit Session(CatalogReading& reading);
        ~Session();
        Session(const Session&) = delete;
        Session& operator=(const Session&) = delete;

      private:
        CatalogReading& reading_;
        bool isOuter_;
    };

    // Whether the reading has taken so long that it is to be shown.
    [[nodiscard]] bool Visible() const { return visible_; }

    // What is to be shown: how many rows were read of the present answer.
    [[nodiscard]] std::string Text() const;

    // The button: the reading ends at its next row. Harmless where there is none.
    void Cancel();

    // Whether the latest reading was cancelled: the lists are not complete then.
    [[nodiscard]] bool WasCancelled() const { return cancelled_; }

    void Read(std::size_t rows) override;

    // Something is to be shown anew, or nothing any more. Whoever listens draws it and serves the events of the button:
    // the reading stands still meanwhile.
    Signal<> Changed;

  private:
    void Begin();
    void End();

    const Clock& time_;
    std::optional<std::chrono::system_clock::time_point> begun_; // nothing outside of a session
    std::chrono::system_clock::time_point shown_;
    std::size_t rows_ = 0;
    bool visible_ = false;
    bool cancelled_ = false;
};

} // namespace veldrane
