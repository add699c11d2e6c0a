#pragma once

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
// it closed; a failure is reported, and the project goes on without one.
class ProjectSession
{
  public:
    explicit ProjectSession(const Application& application);

    [[nodiscard]] TTCProject& Project() { return document_->Project; }
    [[nodiscard]] KZMClasses& Classes() { return document_->Classes; }

    // A new document, as the New command and OK in the project's properties give it.
    void New(DataSourceOnOpen dataSource = DataSourceOnOpen::Connect);

    // Replaces the document by that of the file. False if it can't be opened, which is told.
    bool Open(const std::string& path, DataSourceOnOpen dataSource);

    // Whether the file that was opened holds classes that could not be read, which is reported. Saving drops them.
    [[nodiscard]] bool LostClasses() const { return lostClasses_; }

    // Writes the document over its file. False if that fails, which is reported.
    bool Save();

    // Opens the project's data source in place of the open one. False if that fails, which is reported.
    bool ConnectDataSource(StringOrigin origin);

    // The shared connection; nothing while no data source is open.
    [[nodiscard]] DataSourceConnection* ActiveConnection() { return application_.State.ActiveConnection.get(); }

  private:
    void StartDocument(DataSourceOnOpen dataSource);
    [[nodiscard]] bool IsOpenOn(const std::string& text);

    const Application& application_;
    std::unique_ptr<Document> document_;
    Connection connectionChanged_;
    bool lostClasses_ = false;
};

} // namespace veldrane
