#pragma once

#include "model/class.h"

#include <string>
#include <string_view>
#include <vector>

// What depends on what among the built-in methods, within a class and along the tree.
namespace veldrane {

// The events that stand and fall with a built-in method; "" for a method that has none.
[[nodiscard]] std::string_view EventOfMethod(std::string_view methodName);

// A line for each method of the class that needs one of the named ones, each followed by CR LF.
[[nodiscard]] std::string DependantsText(const KZMClass& item, const std::vector<std::string>& names);

// The question before a method is deleted, with the note on its event if the class has that.
[[nodiscard]] std::string DeletionText(const KZMClass& item, std::string_view methodName);

// Whether a class whose method this is needs the method in each class below it, too.
[[nodiscard]] bool IsNeededBelow(std::string_view methodName);

// A line for each such method of `item` that `subclass` lacks, each followed by CR LF.
[[nodiscard]] std::string MissingMethodsText(const KZMClass& item, const KZMClass& subclass);

} // namespace veldrane
