#pragma once

namespace veldrane {

enum class PointerShape
{
    Default,
    Hourglass,
};

// The mouse pointer over the program's windows.
class MousePointer
{
  public:
    virtual ~MousePointer() = default;

    // Shows the shape and returns the one that was shown before. Never throws.
    virtual PointerShape Show(PointerShape shape) = 0;
};

// Shows a shape for as long as it lives.
class PointerWhile
{
  public:
    PointerWhile(MousePointer& pointer, PointerShape shape) : pointer_(pointer), before_(pointer.Show(shape)) {}
    ~PointerWhile() { pointer_.Show(before_); }
    PointerWhile(const PointerWhile&) = delete;
    PointerWhile& operator=(const PointerWhile&) = delete;

  private:
    MousePointer& pointer_;
    PointerShape before_;
};

} // namespace veldrane
