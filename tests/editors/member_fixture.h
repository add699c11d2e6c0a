#pragma once

#include "editors/member_surroundings.h"
#include "generator/generation_fixture.h"
#include "model/working_copy.h"
#include "projectfile/class_writer.h"
#include "scripted_editor_dialogs.h"
#include "support/fake_catalog.h"
#include "support/memory_settings.h"

#include <string>
#include <vector>

namespace veldrane::testing {

using Texts = std::vector<std::string>;

// The class Order of a project in the hands of its editor, with the events and methods of the tests.
class MemberTest : public GenerationTest
{
  protected:
    MemberTest() { edit.Source = &catalog; }

    void AnswerWith(std::initializer_list<Answer> answers) { messages = ScriptedMessages(answers); }

    static TTCParameter Argument(const std::string& name, const std::string& type)
    {
        TTCParameter argument;
        argument.VariableName = name;
        argument.ParameterDataType = type;
        return argument;
    }

    static TTCParameter OptionalArgument(const std::string& name, const std::string& type)
    {
        TTCParameter argument = Argument(name, type);
        argument.OptionalIndicator = true;
        return argument;
    }

    // A method of the person's, in the class and in its register.
    TTCMethod& AddOwnMethod(const std::string& name)
    {
        item.TTCMembers.Add(name, name);
        return AddMethod(item, name, false);
    }

    ttcEvent& AddOwnEvent(const std::string& name)
    {
        item.TTCMembers.Add(name, name);
        return *item.TTCEvents.Add(name, TTCEventParameters{}, false, name);
    }

    [[nodiscard]] Texts Titles() const
    {
        Texts titles;
        for (const Question& question : messages.Asked())
            titles.push_back(question.Title);
        return titles;
    }

    [[nodiscard]] Texts Told() const
    {
        Texts texts;
        for (const Question& question : messages.Asked())
            texts.push_back(question.Text);
        return texts;
    }

    // The classes as a file has them.
    [[nodiscard]] std::string Saved() const
    {
        std::string text;
        WriteClassInfo(text, classes);
        return text;
    }

    template <class Members, class Member>
    [[nodiscard]] static Texts NamesOf(const Members& members, std::string Member::*name)
    {
        Texts names;
        for (const Member& member : members)
            names.push_back(member.*name);
        return names;
    }

    [[nodiscard]] Texts MethodNames() const { return NamesOf(item.TTCMethods, &TTCMethod::MethodName); }
    [[nodiscard]] Texts EventNames() const { return NamesOf(item.TTCEvents, &ttcEvent::EventName); }

    FakeCatalog catalog;
    KZMClass& item = AddClass("Order");
    ScriptedEditorDialogs dialogs;
    MemorySettings settings;
    ClassEdit edit{.Class = item, .Messages = messages, .Errors = errors, .CodePage = generation.Settings.CodePage};
    PreviewSource generated{project, classes, generation, errors};
    MemberSurroundings surroundings{.Edit = edit, .Generated = generated, .Dialogs = dialogs, .UserSettings = settings};
};

} // namespace veldrane::testing
