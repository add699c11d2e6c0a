#pragma once

#include "model/xml_assist.h"
#include "shell/project_properties/frm_project_properties.h"
#include "shell/project_properties/scripted_project_dialogs.h"
#include "support/failing_settings.h"
#include "support/fake_connection.h"
#include "support/memory_file_system.h"
#include "support/recorded_errors.h"
#include "support/scripted_file_dialogs.h"
#include "support/scripted_messages.h"

#include <gmock/gmock.h>

#include <memory>
#include <string>

namespace veldrane::testing {

// A project with the class Order, its collection Orders and xmlAssist.
class ProjectPropertiesTest : public ::testing::Test
{
  protected:
    ProjectPropertiesTest()
    {
        project.SetProjectName("Shop");
        project.VBProjectName = "Shop";
        project.WrapperClassName = "Auto";
        project.AutosaveProjectInterval = 5;
        AddClass("Order", "Orders");
    }

    void AddClass(const std::string& name, const std::string& collection = {})
    {
        auto item = std::make_shared<KZMClass>();
        item->ClassName = name;
        item->CollectionName = collection;
        item->CreateCollection = !collection.empty();
        classes.AddExisting(item, name);
        project.ClassCollectionNames.Add(name, name);
        if (!collection.empty())
            project.ClassCollectionNames.Add(collection, collection);
    }

    frmProjectProperties Open(ProjectTab tab = ProjectTab::General)
    {
        return {{.Project = project,
                 .Classes = classes,
                 .Options = settings,
                 .Dialogs = dialogs,
                 .Logging = {.Connect = connect,
                             .Files = files,
                             .Dialogs = fileDialogs,
                             .Messages = messages,
                             .Errors = errors,
                             .CodePage = codePage},
                 .LoggingTurnedOn = [this] { ++loggingTurnedOn; }},
                tab};
    }

    TTCProject project;
    KZMClasses classes;
    FailingSettings settings;
    ScriptedProjectDialogs dialogs;
    ScriptedMessages messages;
    RecordedErrors errors;
    MemoryFileSystem files;
    ScriptedFileDialogs fileDialogs;
    text::CodePage codePage;
    OpenDataSource connect = [](const std::string& /*text*/, StringOrigin /*origin*/) {
        return std::make_unique<FakeConnection>();
    };
    int loggingTurnedOn = 0;
};

} // namespace veldrane::testing
