#pragma once

#include "datasource/catalog.h"

#include <functional>
#include <string>
#include <vector>

// What a catalog answers, as lines that a test can compare.
namespace veldrane {

// Names that a statement has to quote with care, these and `more`: no two are the same to a database that folds case.
[[nodiscard]] std::vector<std::string> AwkwardNames(const std::vector<std::string>& more);

// The statement that opens the table.
[[nodiscard]] std::string Statement(const std::string& table);

[[nodiscard]] std::vector<std::string> FieldNames(Catalog& catalog, const std::string& statement);

// "name|type" of each table.
[[nodiscard]] std::vector<std::string> TableRows(Catalog& catalog);

// "name: related column=related_column ..." of each key.
[[nodiscard]] std::vector<std::string> KeyRows(Catalog& catalog, const std::string& table);

// An empty one if there is none.
[[nodiscard]] CatalogIndex PrimaryKey(Catalog& catalog, const std::string& table);

[[nodiscard]] std::vector<std::string> AutoIncrementFields(Catalog& catalog, const std::string& table);

// The number of the DataSourceError that the action throws, 0 if it goes well.
[[nodiscard]] long NumberOfFailure(const std::function<void()>& action);

} // namespace veldrane
