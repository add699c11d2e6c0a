#include "shell/desktop/qt_error_report.h"

#include "shell/desktop/room_for_dialog.h"
#include "shell/platform/console_error_report.h"
#include "text/strings.h"

#include <iostream>
#include <utility>

namespace veldrane {
namespace {

// What failed and what to do, as two sentences.
std::string Summary(const std::string& description, const std::string& hint)
{
    std::string summary = description;
    if (!hint.empty())
        text::AppendSentence(summary, hint);
    return summary;
}

} // namespace

QtErrorReport::QtErrorReport(ADOErrors adoErrors) : adoErrors_(std::move(adoErrors)) {}

void QtErrorReport::ReportError(const RuntimeError& error, const ErrorPlace& place)
{
    try {
        Show(error, place);
    } catch (const std::exception&) {
        ConsoleErrorReport(std::cerr, adoErrors_).ReportError(error, place);
    }
}

void QtErrorReport::Show(const RuntimeError& error, const ErrorPlace& place)
{
    const std::string summary = IsHintAlone(place) ? place.Hint : Summary(error.Description(), place.Hint);
    const std::string report = IsHintAlone(place) ? "" : ErrorText(FactsOf(error, place, ADOErrorsOf(error)));
    if (shown_) {
        shown_->Add(summary, report);
        return;
    }
    const RoomForDialog room;
    ErrorDialog dialog(WindowInFront());
    dialog.Add(summary, report);
    shown_ = &dialog;
    dialog.exec();
}

std::vector<ADOError> QtErrorReport::ADOErrorsOf(const RuntimeError& error) const
{
    return adoErrors_ ? adoErrors_(error) : std::vector<ADOError>();
}

} // namespace veldrane
