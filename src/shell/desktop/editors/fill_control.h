#pragma once

#include <QComboBox>
#include <QLineEdit>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// Puts what rules hold into controls. None of their signals is raised, and what is there already is not touched, so
// that a person can go on typing.
namespace veldrane {

// A row of a box.
struct BoxRow
{
    std::string_view Text;
    std::string_view Icon{};
};

// The text of a field, or of a box that can be typed into.
void ShowText(QLineEdit& field, const std::string& text);
void ShowText(QComboBox& box, const std::string& text);

// The rows. A box that can be typed into keeps its text.
void ShowRows(QComboBox& box, const std::vector<BoxRow>& rows);

// The rows, and which of them is chosen; a position behind the last chooses none.
void ShowRows(QComboBox& box, const std::vector<BoxRow>& rows, std::size_t chosen);

} // namespace veldrane
