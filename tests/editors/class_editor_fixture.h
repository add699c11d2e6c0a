#pragma once

#include "editors/frm_add_edit_class.h"
#include "projectfile/class_writer.h"
#include "scripted_editor_dialogs.h"
#include "shell/no_conflicts.h"
#include "support/fake_connection.h"
#include "support/memory_application.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

namespace veldrane::testing {

// A person in front of the dialogs of members: does to the class what the test says in each, and else cancels.
class ScriptedMembers : public MemberDialogs
{
  public:
    bool AddMethod(KZMClass& item) override { return Open("AddMethod", item); }
    bool EditMethod(KZMClass& item, const std::shared_ptr<TTCMethod>& method) override
    {
        return Open("EditMethod " + method->MethodName, item);
    }
    bool AddBuiltInMethods(KZMClass& item) override { return Open("AddBuiltInMethods", item); }
    bool PickProcedures(KZMClass& item, SPs& picked) override
    {
        for (const std::string& name : Procedures) {
            const auto procedure = std::make_shared<SP>();
            procedure->SPName = name;
            procedure->SPMethodName = name.starts_with('-') ? "" : name;
            picked.AddExisting(procedure, name);
        }
        return Open("PickProcedures", item);
    }
    bool AddProcedure(KZMClass& item, const std::shared_ptr<SP>& procedure) override
    {
        return Open("AddProcedure " + procedure->SPName, item);
    }
    bool EditProcedure(KZMClass& item, const std::shared_ptr<TTCMethod>& method) override
    {
        return Open("EditProcedure " + method->MethodName, item);
    }
    bool AddEvent(KZMClass& item) override { return Open("AddEvent", item); }
    bool EditEvent(KZMClass& item, const std::shared_ptr<ttcEvent>& event) override
    {
        return Open("EditEvent " + event->EventName, item);
    }
    bool AddBuiltInEvents(KZMClass& item) override { return Open("AddBuiltInEvents", item); }
    bool FieldProperties(KZMClass& item, const std::shared_ptr<TTCProperty>& property) override
    {
        return Open("FieldProperties " + property->PropertyName, item);
    }
    bool AddProperty(KZMClass& item) override { return Open("AddProperty", item); }
    bool EditProperty(KZMClass& item, const std::shared_ptr<TTCProperty>& property) override
    {
        return Open("EditProperty " + property->PropertyName, item);
    }
    bool AddBuiltInProperties(KZMClass& item) override { return Open("AddBuiltInProperties", item); }

    std::function<bool(KZMClass&)> Do;
    std::vector<std::string> Procedures; // a name with "-" in front is not ticked
    std::vector<std::string> Opened;

  private:
    bool Open(std::string name, KZMClass& item)
    {
        Opened.push_back(std::move(name));
        return Do && Do(item);
    }
};

// A project on a data source with customers, their orders and shippers, and what an editor of its classes works with.
// The customers are a class of it.
class ClassEditorTest : public ::testing::Test
{
  protected:
    ClassEditorTest()
    {
        Project.VBProjectName = "Shop";
        auto& customers = Source.Content.Add("Customers");
        customers.Fields = {IdentityField("ID"), Field("Name", adVarWChar, 50)};
        customers.Indexes = {PrimaryIndex({"ID"})};
        auto& orders = Source.Content.Add("Orders");
        orders.Fields = {IdentityField("OrderID"), Field("Customer", adInteger), Field("Note", adVarWChar, 20)};
        orders.Indexes = {PrimaryIndex({"OrderID"})};
        orders.Keys = {ForeignKey("FK_Customer", "Customers", {{"Customer", "ID"}})};
        Source.Content.Add("Shippers").Fields = {IdentityField("ShipperID")};
        // As the main window does it.
        renamed_ = Classes.ClassNameChanged.Connect([this](const std::string& before, const std::string& after) {
            for (KZMClass& item : Classes)
                if (item.ParentClassName == before)
                    item.ParentClassName = after;
        });
    }

    FakeTable& Table(const std::string& name) { return Source.Content.Content[name]; }

    // A class of the project, as its table gives it.
    std::shared_ptr<KZMClass> Made(const NewClass& request)
    {
        frmAddEditClass form(World, request);
        EXPECT_TRUE(form.Load());
        EXPECT_TRUE(form.cmdOK_Click());
        Project.SetModified(false);
        Messages.Forget();
        const std::string name = form.txtClassName();
        return Classes.Item(name);
    }
    std::shared_ptr<KZMClass> MadeCustomer() { return Made({.TableName = "Customers"}); }
    std::shared_ptr<KZMClass> MadeOrder()
    {
        return Made({.TableName = "Orders", .ParentClassName = "Customer", .Place = Placement::UnderParent});
    }

    // What a file would hold of the classes.
    [[nodiscard]] std::string Saved() const
    {
        std::string text;
        WriteClassInfo(text, Classes);
        return text;
    }

    void AnswerWith(std::initializer_list<Answer> answers) { Messages = ScriptedMessages(answers); }

    [[nodiscard]] std::vector<std::string> Titles() const
    {
        std::vector<std::string> titles;
        for (const Question& question : Messages.Asked())
            titles.push_back(question.Title);
        return titles;
    }

    void ExpectTold(const std::string& title, const std::string& text) const
    {
        ASSERT_FALSE(Messages.Asked().empty());
        EXPECT_EQ(Messages.Asked().back().Title, title);
        EXPECT_EQ(Messages.Asked().back().Text, text);
    }

    [[nodiscard]] static std::vector<std::string> Texts(const frmAddEditClass& form, ClassList list)
    {
        std::vector<std::string> texts;
        for (const MemberRow& row : form.Rows(list))
            texts.push_back(row.Text);
        return texts;
    }

    // Selects the rows of these texts.
    static void Select(frmAddEditClass& form, ClassList list, const std::vector<std::string>& texts)
    {
        std::vector<std::size_t> rows;
        const std::vector<std::string> all = Texts(form, list);
        for (const std::string& text : texts) {
            const auto found = std::find(all.begin(), all.end(), text);
            EXPECT_NE(found, all.end()) << text;
            rows.push_back(static_cast<std::size_t>(found - all.begin()));
        }
        form.Select(list, rows);
    }

    template <class Arguments>
    [[nodiscard]] static std::vector<std::string> Signature(const Arguments& arguments)
    {
        std::vector<std::string> signature;
        for (const TTCParameter& argument : arguments)
            signature.push_back(argument.VariableName + ":" + argument.ParameterDataType);
        return signature;
    }

    MemoryApplication Memory;
    ScriptedMessages& Messages = Memory.Messages;
    RecordedErrors& Errors = Memory.Errors;
    text::CodePage CodePage;
    TTCProject Project;
    KZMClasses Classes;
    NoConflicts Conflicts;
    CodeGeneration Generation{Project, GenerationPorts{.Asking = Messages,
                                                       .Errors = Errors,
                                                       .Files = Memory.Files,
                                                       .Time = Memory.Clock,
                                                       .Programs = Memory.Processes,
                                                       .Conflicts = Conflicts}};
    FakeConnection Source;
    bool IsOpen = true; // whether there is a data source
    ScriptedMembers Members;
    std::vector<std::string> Below; // of whatever class
    ClassEditorWorld World{
        .Names = {.Project = Project, .Classes = Classes, .Messages = Messages, .Errors = Errors, .CodePage = CodePage},
        .Generation = Generation,
        .Members = Members,
        .OpenCatalog = [this] { return IsOpen ? Source.OpenCatalog() : nullptr; },
        .ClassesBelow = [this](const std::string& /*className*/) { return Below; }};

  private:
    Connection renamed_;
};

} // namespace veldrane::testing
