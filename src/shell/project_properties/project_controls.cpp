#include "shell/project_properties/project_controls.h"

#include "shell/project_defaults.h"

namespace veldrane {

const std::array<ProjectCheck, 13> kProjectChecks{{
    {"chkAutoSave", &TTCProject::AutosaveProject, "Autosave Project Help:",
     "Keeps a copy of your changes every few minutes while the project is open. If the program ends before you have "
     "saved, the next start brings your work back from the copy. Your project file itself is only written when you save "
     "it."},
    {"chkWrapClasses", &TTCProject::WrapClasses, "Wrap Classes Help:",
     "Clients reach your top-level classes and open the database through one class, which is always generated under the "
     "name below. This mark is kept in the project file."},
    {"chkUseTransactions", &TTCProject::UseTransactions, "Use Database Transactions Help:",
     "Writes a record and its child records within one database transaction: if one of them can't be written, none is. "
     "Your database has to support transactions."},
    {"chkWeb", &TTCProject::MakeWebCompatible, "Make Web Compatible Help:",
     "Generates code for places where nobody sees a message box, as behind web pages: no box tells of a text that was "
     "cut, and error messages are marked up for a browser."},
    {"chkForms", &TTCProject::FormsEnabled, "", // FormsHeading
     "Marks the project as one whose classes are shown in forms. The mark is kept in the project file and stands in the "
     "project's summary."},
    {"chkDoNotExposeChildren", &TTCProject::DoNotExposeChildrenMethods, "Do Not Expose Children Methods Publicly:",
     "Marks the methods of child classes as none of a client's business. The mark is kept in the project file; who may "
     "call a method is up to its scope, which you choose in the class editor."},
    {"chkTrackPropertyChanges", &TTCProject::TrackPropertyChanges, "Track Individual Property Changes:",
     "Keeps for each property whether its value was changed, so that an update writes the changed fields alone. Your "
     "choice also becomes the default of new projects."},
    {"chkWriteToLog", &TTCProject::WriteErrorsToApplicationLog, "Write Errors to Application Log Help:",
     "Writes the errors of generated code to the application log of the machine that it runs on."},
    {"chkMTS", &TTCProject::MTSEnabled, "Enable Microsoft Component Services Support Help:",
     "Generated objects write to the database through a component on the server, which carries out all changes of a "
     "transaction together. The class xmlAssist, which builds the documents for the component, is added to your project, "
     "and taken out again when this option is turned off."},
    {"chkDontRetrieve", &TTCProject::MTSDontRetrieve, "Don't Retrieve Records Using Component Services Help:",
     "Generated objects read records through a database connection of their own and use the component for changes alone. "
     "Each instance of your COM object then connects to your database."},
    {"chkUseADOR", &TTCProject::UseADOR, "Use ADO Recordset Library Help:",
     "Generated code declares its recordsets by the small recordset library (ADOR), which is all that a client of the "
     "component needs."},
    {"chkLogTransactions", &TTCProject::LogTransactions, "Log Transactions Help:",
     "The component keeps the document of each transaction in a table of a database. 'Create Logging Table' makes the "
     "table."},
    {"chkAllowLogChange", &TTCProject::AllowLogTargetChange, "Allow Log Target to be Changed at Runtime:",
     "Lets a client choose another database or table for logged transactions while it runs."},
}};

const std::string_view kTransactionsAreAutomatic =
    "This option is disabled when 'Enable Microsoft Component Services Support' is selected because transactions are "
    "automatically implemented when the Component Services component writes to the database.";

void CopyProjectProperties(const TTCProject& from, TTCProject& to)
{
    to.SetProjectName(from.ProjectName());
    to.AutosaveProjectInterval = from.AutosaveProjectInterval;
    to.LoggingLevel = from.LoggingLevel;
    to.VBVersion = from.VBVersion;
    for (const ProjectText& text : kProjectTexts)
        to.*text.Member = from.*text.Member;
    for (const ProjectCheck& check : kProjectChecks)
        to.*check.Member = from.*check.Member;
    for (const ProjectPrefix& prefix : kProjectPrefixes)
        to.*prefix.Member = from.*prefix.Member;
}

std::string_view FormsCaption(bool webCompatible)
{
    return webCompatible ? "Enable HTML/ASP Form Generation" : "Enable Visual Basic Form Generation";
}

std::string_view FormsHeading(bool webCompatible)
{
    return webCompatible ? "Enable HTML/ASP Form Generation Help:" : "Enable Visual Basic Form Generation Help:";
}

} // namespace veldrane
