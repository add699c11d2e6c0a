// What each sample file holds, against facts that were decoded from its pages apart from the program.

#include "sample_jet_files.h"
#include "support/sample_data.h"

#include "text/strings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <vector>

namespace veldrane {
namespace {

namespace fs = std::filesystem;

using testing::BytesOf;
using testing::RealJet;
using testing::SampleDataFolder;

const fs::path kFacts = VELDRANE_SOURCE_DIR "/tests/datasource/jet/facts";

const std::map<std::string, std::string> kPasswords{{"indexTestV2003-password", "geheim ß"}};

// What a refusal says, by the word that the facts have for it.
const std::map<std::string, std::string> kRefusals{
    {"ace", "is a file of the engine that came after Jet"},
    {"damaged", "is damaged"},
    {"not-jet", "is no Jet file"},
    {"password", "password"},
};

std::vector<std::string> NamesOfFacts()
{
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(kFacts))
        names.push_back(entry.path().stem());
    std::sort(names.begin(), names.end());
    return names;
}

// A table, a view or a procedure: its own line, then what belongs to it.
using Block = std::vector<std::string>;

// Indexes and keys have no order of their own, nor have tables and queries; columns have.
std::string Sorted(std::vector<Block> blocks)
{
    const auto isColumn = [](const std::string& line) { return line.starts_with("    column "); };
    for (Block& block : blocks)
        std::sort(std::find_if_not(block.begin() + 1, block.end(), isColumn), block.end());
    std::sort(blocks.begin(), blocks.end());
    std::string text;
    for (const Block& block : blocks)
        for (const std::string& line : block)
            text += line + '\n';
    return text;
}

// Linked tables are known to the file and not shown.
std::string ExpectedIn(const std::string& facts)
{
    std::vector<Block> blocks;
    for (const std::string_view line : text::Split(facts, "\n"))
        if (line.starts_with("    "))
            blocks.back().emplace_back(line);
        else if (!line.empty() && !line.starts_with('#'))
            blocks.push_back({std::string(line)});
    std::erase_if(blocks, [](const Block& block) { return block.front().ends_with(" | LINK"); });
    return Sorted(blocks);
}

std::string Joined(const std::vector<std::string>& words, const std::string& between)
{
    std::string joined;
    for (const std::string& word : words)
        joined += joined.empty() ? word : between + word;
    return joined;
}

std::string LineOf(const CatalogField& field)
{
    std::vector<std::string> facts{field.Name, std::to_string(field.Type), std::to_string(field.DefinedSize),
                                   std::to_string(field.Attributes)};
    if (field.IsAutoIncrement)
        facts.emplace_back("auto");
    return "    column " + Joined(facts, " | ");
}

std::string LineOf(const CatalogIndex& index)
{
    std::vector<std::string> words;
    if (index.PrimaryKey)
        words.emplace_back("primary");
    if (index.Unique)
        words.emplace_back("unique");
    return "    index " + index.Name + " | " + (words.empty() ? "-" : Joined(words, ", ")) + " | " +
           Joined(index.Columns, ", ");
}

std::string LineOf(const CatalogKey& key)
{
    std::vector<std::string> pairs;
    for (const CatalogKeyColumn& column : key.Columns)
        pairs.push_back(column.Name + "=" + column.RelatedColumn);
    return "    key " + key.Name + " | " + key.RelatedTable + " | " + Joined(pairs, ", ");
}

// A view whose columns can't be told has none.
void AppendColumns(Block& block, Catalog& catalog, const std::string& table)
{
    try {
        for (const CatalogField& field : catalog.Fields("SELECT * FROM [" + table + "] WHERE 1=0"))
            block.push_back(LineOf(field));
    } catch (const DataSourceError& error) {
        EXPECT_THAT(error.Description(), ::testing::HasSubstr("can't be told")) << table;
    }
}

Block BlockOf(Catalog& catalog, const CatalogTable& table)
{
    if (table.Type == "VIEW") {
        Block block{"view " + table.Name};
        AppendColumns(block, catalog, table.Name);
        return block;
    }
    Block block{"table " + table.Name + " | " + table.Type};
    AppendColumns(block, catalog, table.Name);
    for (const CatalogIndex& index : catalog.Indexes(table.Name))
        block.push_back(LineOf(index));
    for (const CatalogKey& key : catalog.Keys(table.Name))
        block.push_back(LineOf(key));
    return block;
}

std::string FactsOf(Catalog& catalog)
{
    std::vector<Block> blocks;
    for (const CatalogTable& table : catalog.Tables())
        blocks.push_back(BlockOf(catalog, table));
    for (const std::string& procedure : catalog.Procedures())
        blocks.push_back({"procedure " + procedure});
    return Sorted(blocks);
}

std::string PasswordOf(const std::string& name)
{
    const auto found = kPasswords.find(name);
    return found == kPasswords.end() ? "" : found->second;
}

class JetFacts : public ::testing::TestWithParam<std::string>
{
  protected:
    void SetUp() override
    {
        if (SampleDataFolder("jet").empty())
            GTEST_SKIP() << testing::kNoSampleData;
    }

    [[nodiscard]] static std::string Path()
    {
        const std::string path = SampleDataFolder("jet") + GetParam();
        return fs::exists(path + ".mdb") ? path + ".mdb" : path + ".accdb";
    }

    RealJet jet;
};

TEST_P(JetFacts, AreThoseOfThePages)
{
    const std::string expected = ExpectedIn(BytesOf(kFacts / (GetParam() + ".txt")));
    const std::string word = "refused ";
    if (expected.starts_with(word)) {
        const std::string reason = expected.substr(word.size(), expected.find('\n') - word.size());
        EXPECT_THAT(jet.RefusalOf(Path()),
                    ::testing::AllOf(::testing::HasSubstr(Path()), ::testing::HasSubstr(kRefusals.at(reason))));
        return;
    }
    const auto catalog = jet.Open(Path(), PasswordOf(GetParam()));
    EXPECT_EQ(FactsOf(*catalog), expected);
}

INSTANTIATE_TEST_SUITE_P(SampleFiles, JetFacts, ::testing::ValuesIn(NamesOfFacts()), [](const auto& name) {
    std::string word = name.param;
    std::replace_if(
        word.begin(), word.end(), [](char c) { return std::isalnum(static_cast<unsigned char>(c)) == 0; }, '_');
    return word;
});

TEST(JetFactsFolder, HasFactsForEverySampleFile)
{
    if (SampleDataFolder("jet").empty())
        GTEST_SKIP() << testing::kNoSampleData;
    for (const fs::directory_entry& entry : fs::directory_iterator(SampleDataFolder("jet"))) {
        const bool isDatabase = entry.path().extension() == ".mdb" || entry.path().extension() == ".accdb";
        EXPECT_EQ(fs::exists(kFacts / (entry.path().stem().string() + ".txt")), isDatabase) << entry.path();
    }
}

} // namespace
} // namespace veldrane
