#pragma once

#include "model/class.h"

#include <memory>
#include <string>
#include <vector>

// The members of a class as the editor lists them, in the order of their collections.
namespace veldrane {

struct MemberRow
{
    std::string Key; // what a selected row is known by when the list is filled again
    std::string Text;
    std::string Second; // the second column
    std::string Icon;

    friend bool operator==(const MemberRow&, const MemberRow&) = default;
};

using PropertyItems = std::vector<std::shared_ptr<TTCProperty>>;
using MethodItems = std::vector<std::shared_ptr<TTCMethod>>;
using EventItems = std::vector<std::shared_ptr<ttcEvent>>;

// The properties that stand on a field of the table, and the others.
[[nodiscard]] PropertyItems FieldPropertiesOf(const KZMClass& item);
[[nodiscard]] PropertyItems PlusPropertiesOf(const KZMClass& item);

[[nodiscard]] MethodItems MethodsOf(const KZMClass& item);
[[nodiscard]] EventItems EventsOf(const KZMClass& item);

// A property's second column is its type; its picture tells an identity column, a column of the primary key, another
// field and a built-in property apart.
[[nodiscard]] MemberRow RowOf(const TTCProperty& property, const KZMClass& item);

// A method's second column is what it returns, or the stored procedure that it calls.
[[nodiscard]] MemberRow RowOf(const TTCMethod& method, const KZMClass& item);
[[nodiscard]] MemberRow RowOf(const ttcEvent& event, const KZMClass& item);

} // namespace veldrane
