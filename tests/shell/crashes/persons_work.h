#pragma once

#include "support/disk_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <set>
#include <string>

namespace veldrane::testing {

// A person with version 0 of a project in a file, and with settings.
class PersonsWork : public ::testing::Test
{
  protected:
    using Versions = std::set<std::optional<int>>;
    static constexpr std::optional<int> kNone = std::nullopt;

    // Everything as it was before.
    void Reset() const
    {
        Folder.Clear();
        DiskProgram program(Folder);
        program.New(0);
        ASSERT_TRUE(program.Save());
        program.Store("Bystander", "stays");
    }

    // A killed program leaves that version of the project behind, in a copy for recovery.
    void Crash(int version) const;

    // The version in a project file, or in the backup of `file`; nothing where there is none.
    [[nodiscard]] std::optional<int> VersionAt(const std::string& path, const std::string& file) const
    {
        const std::optional<std::string> bytes = BytesIn(path);
        if (!bytes)
            return kNone;
        const std::optional<int> version = WholeVersion(Folder, *bytes, file);
        EXPECT_TRUE(version) << path << " is not whole: " << *bytes;
        return version;
    }
    [[nodiscard]] std::optional<int> Document() const { return VersionAt(Folder.Document(), Folder.Document()); }
    [[nodiscard]] std::optional<int> Backup() const
    {
        return VersionAt(Folder.Path("work/Shop.bak"), Folder.Document());
    }
    [[nodiscard]] std::optional<int> Other() const { return VersionAt(OtherPath, OtherPath); }

    // The settings can be read, and what nobody wrote is there.
    void ExpectOtherSettings() const
    {
        DiskProgram reader(Folder);
        EXPECT_EQ(reader.Stored("Bystander"), "stays");
        EXPECT_TRUE(reader.Twins.Messages.Asked().empty());
        const auto recent = reader.World().UserSettings.GetAllSettings(settings_section::kMRU);
        EXPECT_THAT(recent, ::testing::Contains(::testing::Pair(::testing::_, Folder.Document())));
        for (const auto& [number, path] : recent)
            EXPECT_TRUE(path == Folder.Document() || path == OtherPath) << path;
    }

    // What the next start brings back, without a word; it leaves no private files where it keeps its own.
    std::optional<int> NextStart() const
    {
        DiskProgram next(Folder);
        const bool recovered = next.Start() == AfterRecovery::Recovered;
        next.Store("Swept", "yes");
        EXPECT_TRUE(next.Twins.Errors.Reported.empty());
        EXPECT_TRUE(next.Twins.Messages.Asked().empty());
        EXPECT_EQ(next.Session.Project().Recovered, recovered);
        EXPECT_EQ(PersonsFolder::PrivateFilesIn(Folder.Recovery()), 0);
        EXPECT_EQ(PersonsFolder::PrivateFilesIn(Folder.SettingsFolder()), 0);
        if (!recovered)
            return kNone;
        EXPECT_TRUE(next.Session.Project().Modified());
        const std::optional<int> version = VersionIn(Folder, next.Session);
        EXPECT_TRUE(version) << "what was recovered is not whole";
        return version;
    }

    PersonsFolder Folder;
    std::string OtherPath = Folder.Path("work/Other.kzm");
};

} // namespace veldrane::testing
