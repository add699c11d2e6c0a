#pragma once

#include "datasource/class_edit.h"
#include "model/classes.h"
#include "support/fake_catalog.h"
#include "support/recorded_errors.h"
#include "support/scripted_messages.h"

#include <gtest/gtest.h>

namespace veldrane::testing {

// An empty class beside an empty catalog.
class ClassFixture : public ::testing::Test
{
  protected:
    // The table is the class's own.
    FakeTable& OwnTable(const std::string& name)
    {
        item.TableName = name;
        return catalog.Add(name);
    }

    void AnswerWith(std::initializer_list<Answer> answers) { messages = ScriptedMessages(answers); }

    [[nodiscard]] std::vector<std::string> Titles() const
    {
        std::vector<std::string> titles;
        for (const Question& question : messages.Asked())
            titles.push_back(question.Title);
        return titles;
    }

    // "Name:Type" of each.
    template <class Arguments>
    [[nodiscard]] static std::vector<std::string> Signature(const Arguments& arguments)
    {
        std::vector<std::string> signature;
        for (const TTCParameter& argument : arguments)
            signature.push_back(argument.VariableName + ":" + argument.ParameterDataType);
        return signature;
    }

    [[nodiscard]] std::vector<std::string> MethodNames() const
    {
        std::vector<std::string> names;
        for (const TTCMethod& method : item.TTCMethods)
            names.push_back(method.MethodName);
        return names;
    }

    [[nodiscard]] std::vector<std::string> PropertyNames() const
    {
        std::vector<std::string> names;
        for (const TTCProperty& property : item.TTCProperties)
            names.push_back(property.PropertyName);
        return names;
    }

    FakeCatalog catalog;
    ScriptedMessages messages;
    RecordedErrors errors;
    text::CodePage codePage;
    KZMClass item;
    KZMClasses classes;
    ClassEdit edit{.Class = item, .Source = &catalog, .Messages = messages, .Errors = errors, .CodePage = codePage};
};

using Texts = std::vector<std::string>;

} // namespace veldrane::testing
