#pragma once

#include "model/signal.h"
#include "projectfile/file_management.h"
#include "projectfile/temp_files.h"
#include "shell/application.h"
#include "shell/document.h"

#include <memory>
#include <string>

namespace veldrane {

// Whether a project's data source is opened with it, and again whenever its connection string changes.
enum class DataSourceOnOpen
{
    Connect,
    LeaveClosed,
};

// The project of a session, and the one connection that everything which reads a catalog shares. Assigning a changed
// connection string to the project opens the data source, unless it is open already or the document was told to leave
// it closed; a failure is reported, and the project goes on without one. An empty string closes it.
class ProjectSession
{
  public:
    explicit ProjectSession(const Application& application);

    [[nodiscard]] TTCProject& Project() { return document_->Project; }
    [[nodiscard]] KZMClasses& Classes() { return document_->Classes; }

    // What opens and saves the document's file; its events tell how far it is.
    [[nodiscard]] TTCFileManagement& FileManagement() { return files_; }

    // A new document, as the New command and OK in the project's properties give it.
    void New(DataSourceOnOpen dataSource = DataSourceOnOpen::Connect);

    // Replaces the document by that of the file; an empty path asks for the file first. False if it can't be opened,
    // which is told, or if the person cancels: the former document and its connection are then as they were.
    bool Open(const std::string& path, DataSourceOnOpen dataSource);

    // Whether the file that was opened holds classes that could not be read, which is reported. Saving drops them.
    [[nodiscard]] bool LostClasses() const { return lostClasses_; }

    // Writes the document as SaveProject of the file management does, after asking where that drops classes that could
    // not be read. False if that fails, which is reported, or if the person does not want it.
    bool Save(SaveKind kind = SaveKind::Normal);

    // Replaces the document by that of a copy for recovery, as Open does; it counts as recovered and modified, and the
    // copy is no file that the person has used.
    bool Recover(const std::string& path);

    // Writes the document into its copy for recovery; it stays modified. False if that fails, which is reported. Its
    // own file, if it has one, is on top of the recent list then.
    bool Autosave() { return Autosave(application_.Errors); }

    // The same with a report of the caller's.
    bool Autosave(ErrorReport& report);

    // What the settings know of copies for recovery.
    [[nodiscard]] TempFiles& UnsavedCopies() { return tempFiles_; }

    // The document needs no copy any more: neither the settings nor the document know of it afterwards. A failure is
    // reported and holds nothing up.
    void ForgetCopies();

    // Opens the project's data source in place of the open one. False if that fails, which is reported.
    bool ConnectDataSource(StringOrigin origin);

    // The shared connection; nothing while no data source is open.
    [[nodiscard]] DataSourceConnection* ActiveConnection() { return application_.State.ActiveConnection.get(); }

    // `Project` and `Classes` are new objects now. Raised before DataSourceChanged, where both change.
    Signal<> DocumentReplaced;

    // Another connection is open now, or none.
    Signal<> DataSourceChanged;

    // The document came from the file at this path, or was saved into it.
    Signal<const std::string&> FileUsed;

  private:
    bool Load(const std::string& path, DataSourceOnOpen dataSource);
    void Adopt(std::unique_ptr<Document> document, DataSourceOnOpen dataSource);
    bool Connect(const std::string& text, StringOrigin origin);
    [[nodiscard]] bool MayDropLostClasses();
    [[nodiscard]] bool IsOpenOn(const std::string& text);

    const Application& application_;
    TTCFileManagement files_;
    TempFiles tempFiles_;
    std::unique_ptr<Document> document_;
    Connection connectionChanged_;
    bool lostClasses_ = false;
};

} // namespace veldrane
