#pragma once

#include <QCoreApplication>
#include <QString>
#include <QWidget>

#include <gtest/gtest.h>

#include <functional>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

// How a failed comparison shows a text.
inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

// A person in front of the windows: finds controls by their names, clicks them, and answers dialogs.
namespace veldrane::testing {

// The control of this name and type below the window. Throws if there is none, which ends the test.
template <class Control>
Control& Find(QWidget& window, const std::string& name)
{
    auto* found = window.findChild<Control*>(QString::fromStdString(name));
    if (found == nullptr)
        throw std::runtime_error("no control " + name);
    return *found;
}

// A mouse click on the control of this name. The test fails if the control is hidden or off.
void Click(QWidget& window, const std::string& name);

// Text typed into the control of this name, in place of what stands there.
void Type(QWidget& window, const std::string& name, const std::string& text);

// One dialog that is waited for, and what is done with it.
using Act = std::function<void(QWidget& dialog)>;

// Runs `body`, which opens dialogs one after another and waits for each; each is met by the next act as soon as it is
// there. The test fails if fewer or more come; one that no act is left for is closed.
void WithDialogs(const std::function<void()>& body, const std::vector<Act>& acts);

} // namespace veldrane::testing
