#include "shell/project_properties/frm_project_properties.h"

#include "datasource/naming.h"
#include "model/xml_assist.h"
#include "shell/project_defaults.h"
#include "shell/project_properties/frm_edit_prefix.h"
#include "shell/project_properties/project_checks.h"
#include "text/conversion.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace veldrane {
namespace {

constexpr const char* kForm = "frmProjectProperties";

template <class Table>
auto RowOf(const Table& table, std::string_view control)
{
    return std::find_if(table.begin(), table.end(), [&](const auto& row) { return row.Control == control; });
}

// What each control needs to be of use; one that is not listed is always.
struct Need
{
    std::string_view Control;
    bool (*IsMet)(const TTCProject& values);
};

bool HasComponentServices(const TTCProject& values)
{
    return values.MTSEnabled;
}

bool Logs(const TTCProject& values)
{
    return values.MTSEnabled && values.LogTransactions;
}

bool WritesToLog(const TTCProject& values)
{
    return values.WriteErrorsToApplicationLog;
}

constexpr auto kNeeds = std::to_array<Need>({
    {"txtAutoSave", [](const TTCProject& values) { return values.AutosaveProject; }},
    {"chkUseTransactions", [](const TTCProject& values) { return !values.MTSEnabled; }},
    {"optClient", WritesToLog},
    {"optServer", WritesToLog},
    {"optBoth", WritesToLog},
    {"chkDontRetrieve", HasComponentServices},
    {"chkUseADOR", HasComponentServices},
    {"chkLogTransactions", HasComponentServices},
    {"chkAllowLogChange", Logs},
    {"txtDBConnection", Logs},
    {"txtTableName", Logs},
    {"cmdLoggingTable", Logs},
});

} // namespace

frmProjectProperties::frmProjectProperties(const ProjectPropertiesWorld& world, ProjectTab first)
    : world_(world), first_(first), interval_(std::to_string(world.Project.AutosaveProjectInterval))
{
    CopyProjectProperties(world_.Project, values_);
}

const std::string& frmProjectProperties::Text(std::string_view control) const
{
    if (control == "txtProjectName")
        return values_.ProjectName();
    const auto* const text = RowOf(kProjectTexts, control);
    return text == kProjectTexts.end() ? interval_ : values_.*text->Member;
}

void frmProjectProperties::Text_Change(std::string_view control, const std::string& text)
{
    if (IsMissing(control))
        missing_.clear();
    if (control == "txtProjectName")
        values_.SetProjectName(text);
    else if (control == "txtAutoSave")
        interval_ = text;
    else if (const auto* const row = RowOf(kProjectTexts, control); row != kProjectTexts.end())
        values_.*row->Member = text;
}

bool frmProjectProperties::IsChecked(std::string_view control) const
{
    const auto* const check = RowOf(kProjectChecks, control);
    return check != kProjectChecks.end() && values_.*check->Member;
}

void frmProjectProperties::Check_Click(std::string_view control, bool on)
{
    const auto* const check = RowOf(kProjectChecks, control);
    if (check == kProjectChecks.end())
        return;
    values_.*check->Member = on;
    if (on && control == "chkLogTransactions" && world_.LoggingTurnedOn)
        world_.LoggingTurnedOn();
}

void frmProjectProperties::LoggingLevel_Click(std::int32_t level)
{
    values_.LoggingLevel = level;
}

void frmProjectProperties::cmbVBVersion_Click(std::int32_t version)
{
    values_.VBVersion = version;
}

const std::string& frmProjectProperties::Prefix(std::size_t row) const
{
    return values_.*kProjectPrefixes.at(row).Member;
}

void frmProjectProperties::lstPrefixes_DblClick(std::size_t row)
{
    if (row >= kProjectPrefixes.size())
        return;
    const ProjectPrefix& prefix = kProjectPrefixes.at(row);
    frmEditPrefix form(prefix.Name, values_.*prefix.Member, world_.Logging.Messages, world_.Logging.CodePage);
    if (world_.Dialogs.Show(form))
        values_.*prefix.Member = form.txtPrefix;
}

bool frmProjectProperties::IsEnabled(std::string_view control) const
{
    const auto* const need = RowOf(kNeeds, control);
    return need == kNeeds.end() || need->IsMet(values_);
}

ProjectHelp frmProjectProperties::Help(std::string_view control) const
{
    const auto* const check = RowOf(kProjectChecks, control);
    if (check == kProjectChecks.end())
        return {};
    if (control == "chkForms")
        return {FormsHeading(values_.MakeWebCompatible), check->Help};
    if (control == "chkUseTransactions" && !IsEnabled(control))
        return {check->Heading, kTransactionsAreAutomatic};
    return {check->Heading, check->Help};
}

CheckedProject frmProjectProperties::Checked() const
{
    return {.Values = values_,
            .AutosaveInterval = interval_,
            .Project = world_.Project,
            .Classes = world_.Classes,
            .CodePage = world_.Logging.CodePage};
}

std::string frmProjectProperties::Trouble(std::string_view control) const
{
    const bool isFilled = !IsEnabled(control) || control.substr(0, 3) != "txt" || !Text(control).empty();
    const auto refusal = FirstRefusal(Checked(), control);
    if (!refusal || (!isFilled && !IsMissing(control)))
        return {};
    return refusal->Box.Text;
}

void frmProjectProperties::cmdSetAsDefault_Click()
{
    Guarded(world_.Logging.Errors, kForm, "cmdSetAsDefault_Click",
            [this] { WriteProjectDefaults(values_, world_.Options, DefaultsOf::WholeProject); });
}

void frmProjectProperties::cmdRestoreDefaults_Click()
{
    Guarded(world_.Logging.Errors, kForm, "cmdRestoreDefaults_Click",
            [this] { ReadProjectDefaults(values_, world_.Options, DefaultsOf::WholeProject); });
}

void frmProjectProperties::cmdSetDefaults_Click()
{
    Guarded(world_.Logging.Errors, kForm, "cmdSetDefaults_Click",
            [this] { WriteProjectDefaults(values_, world_.Options, DefaultsOf::Prefixes); });
}

void frmProjectProperties::cmdRestorePrefixes_Click()
{
    Guarded(world_.Logging.Errors, kForm, "cmdRestorePrefixes_Click",
            [this] { ReadProjectDefaults(values_, world_.Options, DefaultsOf::Prefixes); });
}

bool frmProjectProperties::Refuse(std::string_view control, const Question& box)
{
    world_.Logging.Messages.Ask(box);
    missing_ = control;
    FocusWanted.Raise(control);
    return false;
}

bool frmProjectProperties::CleansLogTable()
{
    const auto question = LogTableQuestion(values_);
    if (!question)
        return true;
    if (world_.Logging.Messages.Ask(*question) == Answer::Ok) {
        values_.LogTableName = MakeValidName(values_.LogTableName);
        return true;
    }
    FocusWanted.Raise("txtTableName");
    return false;
}

void frmProjectProperties::cmdLoggingTable_Click()
{
    for (const std::string_view control : {"txtTableName"})
        if (const auto refusal = FirstRefusal(Checked(), control)) {
            Refuse(refusal->Control, refusal->Box);
            return;
        }
    if (!CleansLogTable())
        return;
    frmLoggingTable form({.TableName = values_.LogTableName, .ConnectionString = values_.LogDatabaseConnection},
                         world_.Logging);
    world_.Dialogs.Show(form);
}

bool frmProjectProperties::MayStore()
{
    if (const auto refusal = FirstRefusal(Checked()))
        return Refuse(refusal->Control, refusal->Box);
    return CleansLogTable();
}

void frmProjectProperties::StoreOptions()
{
    const auto store = [this](std::string_view name, bool value) {
        world_.Options.UpdateKey(settings_section::kOptions, name, text::TextOf(value));
    };
    store("TrackPropertyChanges", values_.TrackPropertyChanges);
    if (values_.MTSEnabled)
        store("MTSEnabled", true);
}

void frmProjectProperties::FollowComponentServices()
{
    if (world_.Project.MTSEnabled)
        (void)AddXmlAssist(world_.Project, world_.Classes); // its name was checked
    else
        RemoveXmlAssist(world_.Project, world_.Classes);
}

void frmProjectProperties::Store()
{
    values_.AutosaveProjectInterval = AutosaveMinutes(interval_).value_or(world_.Project.AutosaveProjectInterval);
    CopyProjectProperties(values_, world_.Project);
    FollowComponentServices();
    world_.Project.SetModified(true);
}

bool frmProjectProperties::cmdOK_Click()
{
    bool closes = false;
    const bool whole = Guarded(world_.Logging.Errors, kForm, "cmdOK_Click", [&] {
        if (!MayStore())
            return;
        StoreOptions();
        Store();
        closes = true;
    });
    return whole && closes;
}

} // namespace veldrane
