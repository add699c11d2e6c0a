#pragma once

#include <QLabel>

#include <string_view>

namespace veldrane {

// The words below a field that say what is wrong with what stands in it. Without words it takes no room;
// very long ones are cut, and shown whole by its tip.
class TroubleLabel : public QLabel
{
    Q_OBJECT

  public:
    explicit TroubleLabel(QWidget* parent = nullptr);

    // The words; "" for none. They are the description of the field too, for those who hear what others see. The field
    // is the label's buddy, which may be missing.
    void ShowTrouble(std::string_view words);

  protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void Dress();
    void KeepWhole();
};

} // namespace veldrane
