#pragma once

#include "datasource/row_identifier.h"
#include "model/class.h"

#include <memory>
#include <vector>

// The commands of the class editor that choose by which columns a row is told.
namespace veldrane {

enum class RowKey
{
    IdentityColumn,
    PrimaryKey,
};

// Whether the row of Retrieve or Delete can be told so: false for another method, and for a class without such a key.
[[nodiscard]] bool CanFindBy(const KZMClass& item, const TTCMethod& method, RowKey key);

// Makes Retrieve or Delete find its row by the key: its arguments are made anew and the flags of the class follow, as
// do the arguments of the built-in event that tells of a deleted row.
void FindBy(KZMClass& item, TTCMethod& method, RowKey key);

// Replaces the keys of the class by one on the columns of the properties; an identity column stays one.
void SetPrimaryKey(KZMClass& item, const std::vector<std::shared_ptr<TTCProperty>>& properties);

} // namespace veldrane
