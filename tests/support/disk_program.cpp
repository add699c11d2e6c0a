#include "support/disk_program.h"

#include "shell/platform/temporary_registry.h"
#include "shell/wizard/frm_gen_code.h"

#include <charconv>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <unistd.h>
#include <utility>

namespace veldrane::testing {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kVersionWords = "Version ";
constexpr int kPaddingWords = 200; // so that the file is longer than a buffer or two

// Nobody is asked anything in a run that backs up what is in its way.
class UnusedDialogs : public WizardDialogs
{
  public:
    void Show(frmFile& /*conflict*/) override {}
    [[nodiscard]] std::string DefaultFolder() override { return {}; }
    [[nodiscard]] std::string NewFolderName() override { return {}; }
    void MakeFolder(const std::string& /*path*/) override {}
    void Close() override {}
};

void Describe(TTCProject& project, int version)
{
    project.ProjectDescription.assign(kVersionWords).append(std::to_string(version));
    for (int word = 0; word < kPaddingWords; ++word)
        project.ProjectDescription.append(" of ").append(std::to_string(version + word));
}

void MakeProject(ProjectSession& session, const PersonsFolder& folder, int version)
{
    session.New(DataSourceOnOpen::LeaveClosed);
    session.Project().SetProjectName("Shop");
    session.Project().VBProjectName = "Shop";
    session.Project().OutputPath = folder.Out();
    Describe(session.Project(), version);
}

// What saving as that file would write.
std::string TextIn(ProjectSession& session, const std::string& file)
{
    MemoryApplication elsewhere;
    elsewhere.Files.Folders.insert(fs::path(file).parent_path());
    elsewhere.Dialogs.Add(file);
    TTCFileManagement writer(elsewhere.Files, elsewhere.Messages, elsewhere.Errors, elsewhere.State.Generation.CodePage,
                             elsewhere.World.Windows);
    TTCProject& project = session.Project();
    const std::string path = project.FullPath;
    const std::string name = project.FileName;
    const bool modified = project.Modified();
    writer.SaveProject(project, session.Classes(), SaveKind::SaveAs);
    project.FullPath = path;
    project.FileName = name;
    project.SetModified(modified);
    return elsewhere.Files.Files[file];
}

std::string FileOfVersion(const PersonsFolder& folder, int version, const std::string& file)
{
    MemoryApplication elsewhere;
    ProjectSession session(elsewhere.World);
    MakeProject(session, folder, version);
    return TextIn(session, file);
}

} // namespace

fs::path QuickFolder()
{
    constexpr const char* kMemory = "/dev/shm";
    return access(kMemory, W_OK) == 0 ? kMemory : fs::temp_directory_path();
}

PersonsFolder::PersonsFolder(const fs::path& below)
{
    std::string pattern = below / "veldrane-person-XXXXXX";
    if (mkdtemp(pattern.data()) == nullptr)
        throw std::runtime_error("no folder can be made in " + below.string());
    path_ = pattern;
    setenv("VELDRANE_SETTINGS", Settings().c_str(), 1);
    setenv("XDG_STATE_HOME", Path("state").c_str(), 1);
    Clear();
}

PersonsFolder::~PersonsFolder()
{
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

void PersonsFolder::Clear() const
{
    for (const fs::directory_entry& entry : fs::directory_iterator(path_))
        fs::remove_all(entry);
    fs::create_directory(path_ / "work");
    fs::create_directory(path_ / "out");
}

PersonsFolder::Contents PersonsFolder::FilesIn(const std::string& folder)
{
    Contents contents;
    std::error_code missing;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, missing))
        if (const std::string name = entry.path().filename(); temporary_name::OwnerOf(name).empty())
            contents[name] = BytesIn(entry.path()).value_or("");
    return contents;
}

int PersonsFolder::PrivateFilesIn(const std::string& folder)
{
    int files = 0;
    std::error_code missing;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, missing))
        files += temporary_name::OwnerOf(entry.path().filename()).empty() ? 0 : 1;
    return files;
}

std::optional<std::string> BytesIn(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file)
        return std::nullopt;
    return std::string(std::istreambuf_iterator<char>(file), {});
}

DiskProgram::DiskProgram(const PersonsFolder& folder)
    : folder_(folder),
      assembly_(files_, Twins.State,
                {.Asking = Twins.Messages,
                 .Errors = Twins.Errors,
                 .Time = Twins.Clock,
                 .Progress = Twins.Unwatched,
                 .Windows = {.Dialogs = Twins.Dialogs, .Pointer = Twins.Pointer, .Loading = Twins.Loading},
                 .Output = Twins.Output,
                 .ErrorOutput = Twins.Output,
                 .ProgramFolder = ""}),
      Session(assembly_.World()), recent_(assembly_.World()), autosave_(assembly_.World(), Session, status_),
      used_(Session.FileUsed.Connect([this](const std::string& path) { recent_.Update(path); }))
{}

void DiskProgram::New(int version)
{
    MakeProject(Session, folder_, version);
    Session.Project().FullPath = folder_.Document();
    Session.Project().FileName = "Shop.kzm";
    Session.Project().SetModified(true);
}

void DiskProgram::ChangeTo(int version)
{
    Describe(Session.Project(), version);
    Session.Project().SetModified(true);
}

bool DiskProgram::SaveAs(const std::string& path)
{
    Twins.Dialogs.Add(path);
    return Session.Save(SaveKind::SaveAs);
}

void DiskProgram::TickToAutosave()
{
    constexpr int kTicksOfMinute = 2;
    TTCProject& project = Session.Project();
    project.AutosaveCurrentInterval = project.AutosaveProjectInterval;
    for (int tick = 0; tick < kTicksOfMinute; ++tick)
        autosave_.Tick();
}

std::string DiskProgram::Generate()
{
    UnusedDialogs dialogs;
    frmGenCode wizard(World(), Session.Project(), Session.Classes(), dialogs);
    while (wizard.tabMain() != wizard_page::kOptions)
        wizard.cmdNext_Click();
    wizard.opt_Click(overwrite_mode::kBackupAndOverwrite);
    wizard.cmdNext_Click();
    wizard.tmrStart_Timer();
    return wizard.lblInst() + "\r\n" + wizard.txtWarnings();
}

std::optional<int> WholeVersion(const PersonsFolder& folder, const std::string& bytes, const std::string& file)
{
    const std::size_t words = bytes.find(kVersionWords);
    if (words == std::string::npos)
        return std::nullopt;
    int version = 0;
    std::from_chars(bytes.data() + words + kVersionWords.size(), bytes.data() + bytes.size(), version);
    if (bytes != FileOfVersion(folder, version, file))
        return std::nullopt;
    return version;
}

std::optional<int> VersionIn(const PersonsFolder& folder, ProjectSession& session)
{
    return WholeVersion(folder, TextIn(session, folder.Document()), folder.Document());
}

} // namespace veldrane::testing
