#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace veldrane {

// Ends its subscription when it is destroyed. May outlive the signal. It has one owner: a copy would keep a listener
// that the other one has disconnected.
class Connection
{
  public:
    Connection() = default;
    explicit Connection(std::shared_ptr<void> slot) : slot_(std::move(slot)) {}
    ~Connection() = default;
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    Connection(Connection&&) noexcept = default;
    Connection& operator=(Connection&&) noexcept = default;

    void Disconnect() { slot_.reset(); }

  private:
    std::shared_ptr<void> slot_;
};

// An event of the model or the generator. Listeners are called in the order in which they subscribed; a listener may
// subscribe and disconnect while the event is raised.
template <class... Arguments>
class Signal
{
  public:
    using Listener = std::function<void(Arguments...)>;

    Signal() = default;
    ~Signal() = default;
    Signal(const Signal&) = delete;
    Signal& operator=(const Signal&) = delete;
    Signal(Signal&&) noexcept = default;
    Signal& operator=(Signal&&) noexcept = default;

    // Subscribes for as long as the connection lives.
    [[nodiscard]] Connection Connect(Listener listener)
    {
        auto slot = std::make_shared<Listener>(std::move(listener));
        slots_.push_back(slot);
        return Connection(std::move(slot));
    }

    void Raise(Arguments... arguments)
    {
        std::erase_if(slots_, [](const auto& slot) { return slot.expired(); });
        const auto slots = slots_;
        for (const auto& weak : slots)
            if (const auto slot = weak.lock())
                (*slot)(arguments...);
    }

  private:
    std::vector<std::weak_ptr<Listener>> slots_;
};

} // namespace veldrane
