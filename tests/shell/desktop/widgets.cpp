#include "widgets.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

namespace veldrane::testing {
namespace {

constexpr const char* kMet = "metByATest";
constexpr qint64 kHangGuard = 10'000; // milliseconds

// Meets each modal dialog once, from within its event loop. A timer does not fire while it is served, and a dialog may
// open another: so each look has a timer of its own.
class Attendant : public QObject
{
  public:
    explicit Attendant(const std::vector<Act>& acts) : acts_(acts)
    {
        started_.start();
        LookSoon();
    }

    [[nodiscard]] std::size_t Met() const { return met_; }

  private:
    void LookSoon() { QTimer::singleShot(1, this, &Attendant::Look); }

    void Look()
    {
        LookSoon();
        QWidget* dialog = QApplication::activeModalWidget();
        if (dialog == nullptr || !dialog->isVisible())
            return;
        if (!dialog->property(kMet).toBool())
            Meet(*dialog);
        else if (started_.hasExpired(kHangGuard))
            CloseAbandoned(*dialog);
    }

    void Meet(QWidget& dialog)
    {
        dialog.setProperty(kMet, true);
        if (++met_ <= acts_.size())
            acts_[met_ - 1](dialog);
        else
            CloseAbandoned(dialog);
    }

    static void CloseAbandoned(QWidget& dialog)
    {
        const auto* box = qobject_cast<QMessageBox*>(&dialog);
        ADD_FAILURE() << "nobody has closed " << dialog.objectName().toStdString() << " \""
                      << dialog.windowTitle().toStdString() << "\""
                      << (box == nullptr ? "" : box->text().toStdString());
        dialog.close();
    }

    const std::vector<Act>& acts_;
    std::size_t met_ = 0;
    QElapsedTimer started_;
};

} // namespace

void Click(QWidget& window, const std::string& name)
{
    auto& control = Find<QWidget>(window, name);
    EXPECT_TRUE(control.isVisible()) << name;
    EXPECT_TRUE(control.isEnabled()) << name;
    QTest::mouseClick(&control, Qt::LeftButton);
}

void Type(QWidget& window, const std::string& name, const std::string& text)
{
    auto& control = Find<QWidget>(window, name);
    EXPECT_TRUE(control.isEnabled()) << name;
    control.setFocus();
    QTest::keySequence(&control, QKeySequence::SelectAll);
    QTest::keyClick(&control, Qt::Key_Delete);
    QTest::keyClicks(&control, QString::fromStdString(text));
}

void WithDialogs(const std::function<void()>& body, const std::vector<Act>& acts)
{
    const Attendant attendant(acts);
    body();
    EXPECT_EQ(attendant.Met(), acts.size()) << "dialogs came";
}

} // namespace veldrane::testing
