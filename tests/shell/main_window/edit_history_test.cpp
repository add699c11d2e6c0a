#include "shell/main_window/edit_history.h"

#include "projectfile/class_writer.h"
#include "projectfile/project_writer.h"

#include <gmock/gmock.h>

#include <stdexcept>

namespace veldrane {
namespace {

using ::testing::ElementsAre;

class History : public ::testing::Test
{
  protected:
    History()
    {
        project.SetProjectName("Shop");
        AddClass("Order");
        AddClass("Customer");
        project.SetModified(false);
    }

    void AddClass(const std::string& name)
    {
        auto item = std::make_shared<KZMClass>();
        item->ClassName = name;
        item->TTCProperties.Add({.AddToClass = true, .PropertyName = "ID"}, "ID");
        item->TTCMembers.Add("ID", "ID");
        classes.AddExisting(item, name);
        project.ClassCollectionNames.Add(name, name);
        project.SetModified(true);
    }

    void RemoveClass(const std::string& name)
    {
        classes.Remove(name);
        project.ClassCollectionNames.Remove(name);
        project.SetModified(true);
    }

    void Rename(const std::string& name)
    {
        project.SetProjectName(name);
        project.SetModified(true);
    }

    [[nodiscard]] std::string File() const
    {
        std::string text;
        WriteProjectInfo(text, project);
        WriteClassInfo(text, classes);
        return text;
    }

    [[nodiscard]] std::vector<std::string> Names() const
    {
        std::vector<std::string> names;
        for (const KZMClass& item : classes)
            names.push_back(item.ClassName);
        return names;
    }

    TTCProject project;
    KZMClasses classes;
    EditHistory history{project, classes};
};

TEST_F(History, BeginsWithNothingToTakeBack)
{
    EXPECT_EQ(history.UndoName(), std::nullopt);
    EXPECT_EQ(history.RedoName(), std::nullopt);
    history.Undo();
    history.Redo();
    EXPECT_THAT(Names(), ElementsAre("Order", "Customer"));
    EXPECT_FALSE(project.Modified());
}

TEST_F(History, TakesEachEditBackAndMakesItAgainToTheLetter)
{
    std::vector<std::string> files{File()};
    history.Run("Delete Class Order", [&] { RemoveClass("Order"); });
    files.push_back(File());
    history.Run("Rename Project", [&] { Rename("Corner"); });
    files.push_back(File());
    history.Run("New Class", [&] { AddClass("Payment"); });
    files.push_back(File());

    EXPECT_EQ(history.UndoName(), "New Class");
    history.Undo();
    EXPECT_EQ(File(), files[2]);
    EXPECT_EQ(history.UndoName(), "Rename Project");
    EXPECT_EQ(history.RedoName(), "New Class");
    history.Undo();
    EXPECT_EQ(File(), files[1]);
    history.Undo();
    EXPECT_EQ(File(), files[0]);
    EXPECT_THAT(Names(), ElementsAre("Order", "Customer"));
    EXPECT_TRUE(project.ClassCollectionNames.ClassNameExists("Order"));
    EXPECT_EQ(history.UndoName(), std::nullopt);
    for (std::size_t step = 1; step <= 3; ++step) {
        history.Redo();
        EXPECT_EQ(File(), files[step]);
    }
    EXPECT_EQ(history.RedoName(), std::nullopt);
}

TEST_F(History, KnowsTheSavedStateWhereverItLies)
{
    history.Run("Rename Project", [&] { Rename("Corner"); });
    EXPECT_TRUE(project.Modified());
    history.Undo();
    EXPECT_FALSE(project.Modified());
    history.Redo();
    EXPECT_TRUE(project.Modified());
    project.SetModified(false); // saved
    history.Undo();
    EXPECT_TRUE(project.Modified());
    history.Redo();
    EXPECT_FALSE(project.Modified());
    history.Run("Rename Project", [&] { Rename("Third"); });
    history.Undo();
    EXPECT_FALSE(project.Modified());
}

TEST_F(History, AProjectThatWasNeverSavedStaysModified)
{
    project.SetModified(true);
    history.Run("Rename Project", [&] { Rename("Corner"); });
    history.Undo();
    EXPECT_TRUE(project.Modified());
}

TEST_F(History, WhatNoEditChangesStaysAndKeepsTheMark)
{
    history.Run("Rename Project", [&] { Rename("Corner"); });
    project.SetConnectionString("DSN=other;");
    project.OutputPath = "/out";
    project.FullPath = "/shop.kzm";
    history.Undo();
    EXPECT_EQ(project.ConnectionString(), "DSN=other;");
    EXPECT_EQ(project.OutputPath, "/out");
    EXPECT_EQ(project.FullPath, "/shop.kzm");
    EXPECT_TRUE(project.Modified());
}

TEST_F(History, AnEditThatChangesNothingIsNoStep)
{
    history.Run("Edit Class Order", [] {});
    history.Run("Project Properties", [&] { project.SetModified(true); });
    EXPECT_EQ(history.UndoName(), std::nullopt);
}

TEST_F(History, AnEditWithinAnEditBelongsToIt)
{
    history.Run("Add Class", [&] {
        AddClass("Payment");
        history.Run("Rename Project", [&] { Rename("Corner"); });
    });
    EXPECT_EQ(history.UndoName(), "Add Class");
    history.Undo();
    EXPECT_EQ(history.UndoName(), std::nullopt);
    EXPECT_EQ(project.ProjectName(), "Shop");
}

TEST_F(History, AnEditThatFailsCanBeTakenBackAsFarAsItWent)
{
    EXPECT_THROW(history.Run("Add Class",
                             [&] {
                                 AddClass("Payment");
                                 throw std::runtime_error("lost");
                             }),
                 std::runtime_error);
    EXPECT_EQ(history.UndoName(), "Add Class");
    history.Undo();
    EXPECT_THAT(Names(), ElementsAre("Order", "Customer"));
}

TEST_F(History, ANewEditForgetsWhatWasTakenBack)
{
    history.Run("Rename Project", [&] { Rename("Corner"); });
    history.Undo();
    history.Run("New Class", [&] { AddClass("Payment"); });
    EXPECT_EQ(history.RedoName(), std::nullopt);
    history.Undo();
    EXPECT_EQ(history.UndoName(), std::nullopt);
    EXPECT_EQ(project.ProjectName(), "Shop");
}

TEST_F(History, ForgetsTheOldestOfVeryManySteps)
{
    for (std::size_t step = 0; step <= EditHistory::kMostSteps; ++step)
        history.Run("Rename Project", [&] { Rename("Name " + std::to_string(step)); });
    std::size_t undone = 0;
    for (; history.UndoName(); ++undone)
        history.Undo();
    EXPECT_EQ(undone, EditHistory::kMostSteps);
    EXPECT_EQ(project.ProjectName(), "Name 0");
}

TEST_F(History, ItsClassesAreNobodyElses)
{
    const std::string before = File();
    history.Run("Delete Class Order", [&] { RemoveClass("Order"); });
    history.Undo();
    history.Run("Edit Class Order", [&] {
        classes.Item("Order")->TTCProperties.Item("ID")->DataType = "changed";
        project.SetModified(true);
    });
    history.Undo();
    EXPECT_EQ(File(), before);
}

TEST_F(History, TablesThatWereAttachedGoAndComeWithIt)
{
    history.Run("Add Table", [&] {
        project.AttachedTables.Add("hidden", "hidden");
        project.SetModified(true);
    });
    EXPECT_EQ(history.UndoName(), "Add Table");
    history.Undo();
    EXPECT_EQ(project.AttachedTables.Count(), 0U);
    history.Redo();
    EXPECT_EQ(project.AttachedTables.Count(), 1U);
}

} // namespace
} // namespace veldrane
