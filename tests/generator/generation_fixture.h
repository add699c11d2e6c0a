#pragma once

#include "generator/code_generation.h"
#include "line_text.h"
#include "support/failing_file_system.h"
#include "support/manual_clock.h"
#include "support/recorded_errors.h"
#include "support/recorded_processes.h"
#include "support/scripted_messages.h"

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace veldrane::testing {

// Answers conflicts from a script, in order; at its end, leaves files alone. Keeps what was asked.
class ScriptedConflicts : public ConflictResolver
{
  public:
    ConflictAnswer ResolveConflict(const FileConflict& conflict) override
    {
        Asked.emplace_back(conflict.Path, conflict.FileName);
        if (InConflict)
            InConflict(conflict);
        if (LooksAtText)
            NewBytes.push_back(conflict.NewBytes());
        if (Answers.empty())
            return ConflictAnswer::Leave;
        const ConflictAnswer answer = Answers.front();
        Answers.pop_front();
        return answer;
    }

    std::deque<ConflictAnswer> Answers;
    std::vector<std::pair<std::string, std::string>> Asked;
    std::function<void(const FileConflict&)> InConflict;
    bool LooksAtText = false;
    std::vector<std::string> NewBytes; // of the files asked about
    int FilesUntilCancel = -1;         // negative: the run is not given up

    bool IsCancelled() override { return FilesUntilCancel >= 0 && FilesUntilCancel-- == 0; }
};

// A project with type prefixes, no classes, and a generator in a world of twins.
class GenerationTest : public ::testing::Test
{
  protected:
    GenerationTest()
    {
        project.PrefixBoolean = "bln";
        project.PrefixCollection = "col";
        project.PrefixLong = "lng";
        project.PrefixObject = "obj";
        project.PrefixOther = "oth";
        project.PrefixString = "str";
        project.PrefixVariant = "vnt";
        project.VBProjectName = "Shop";
        project.WrapperClassName = "Auto";
    }

    // A new class of the project.
    KZMClass& AddClass(const std::string& name, const std::string& parent = "")
    {
        auto added = std::make_shared<KZMClass>();
        added->ClassName = name;
        added->CollectionName = name + "s";
        added->ParentClassName = parent;
        classes.AddExisting(added, name);
        return *added;
    }

    // A property on a column of its own name, readable and writable.
    static TTCProperty& AddProperty(KZMClass& owner, const std::string& name, const std::string& dataType)
    {
        const auto property = owner.TTCProperties.Add({}, name);
        property->PropertyName = name;
        property->FieldName = name;
        property->DataType = dataType;
        property->Scope = "Public";
        property->AddToClass = true;
        property->PropertyGet = true;
        property->PropertyLetSet = true;
        return *property;
    }

    static TTCProperty& AddBuiltInProperty(KZMClass& owner, const std::string& name)
    {
        const auto property = owner.TTCProperties.Add({}, name);
        property->PropertyName = name;
        property->PlusProperty = true;
        return *property;
    }

    static void AddLookupField(TTCProperty& property, const std::string& name, const std::string& dataType) { property.TTCLookupFields.Add(name, dataType, name, name); }

    static TTCMethod& AddMethod(KZMClass& owner, const std::string& name, bool plusMethod) { return *owner.TTCMethods.Add(name, plusMethod, KZMArguments{}, "", "Public", false, name); }

    static void AddEvent(KZMClass& owner, const std::string& name) { owner.TTCEvents.Add(name, TTCEventParameters{}, true, name); }

    static void AddKey(KZMClass& owner, std::int32_t keyType, const std::vector<std::string>& columns)
    {
        const auto key = owner.TTCKeys.Add(keyType, TTCColumns{}, KeyTypeText(keyType));
        for (const std::string& column : columns)
            key->TTCColumns.Add(column, "Long", "", column);
    }

    TTCProject project;
    KZMClasses classes;
    ScriptedMessages messages;
    RecordedErrors errors;
    FailingFileSystem files;
    ManualClock clock;
    RecordedProcesses programs;
    ScriptedConflicts conflicts;
    CodeGeneration generation{project, {messages, errors, files, clock, programs, conflicts}};
};

} // namespace veldrane::testing
