#include "shell/desktop/settled_files_model.h"

#include "shell/desktop/qt_text.h"

#include <QFileInfo>

#include <algorithm>
#include <array>

namespace veldrane {
namespace {

using namespace Qt::StringLiterals;

struct OutcomeWord
{
    FileOutcome Outcome;
    const char* Word;
};

constexpr auto kWords = std::to_array<OutcomeWord>({
    {FileOutcome::New, "new"},
    {FileOutcome::Overwritten, "overwritten"},
    {FileOutcome::Unchanged, "unchanged"},
    {FileOutcome::Left, "left"},
});

QString WordOf(FileOutcome outcome)
{
    for (const OutcomeWord& row : kWords)
        if (row.Outcome == outcome)
            return QLatin1StringView(row.Word);
    return {};
}

struct EndingIcon
{
    const char* Ending;
    const char* Icon;
};

constexpr auto kIcons = std::to_array<EndingIcon>({
    {"bas", "Module"},
    {"cls", "Class"},
    {"frm", "Form"},
    {"vbg", "Project"},
    {"vbp", "Project"},
});

std::string_view IconOf(const QString& fileName)
{
    const QString ending = QFileInfo(fileName).suffix().toLower();
    for (const EndingIcon& row : kIcons)
        if (ending == QLatin1StringView(row.Ending))
            return row.Icon;
    return "File";
}

} // namespace

void SettledFilesModel::Show(std::vector<SettledFile> files)
{
    beginResetModel();
    files_ = std::move(files);
    endResetModel();
}

QString SettledFilesModel::Summary() const
{
    QStringList counts;
    for (const OutcomeWord& row : kWords) {
        const auto count = std::count_if(files_.begin(), files_.end(),
                                         [&](const SettledFile& file) { return file.Outcome == row.Outcome; });
        if (count > 0)
            counts.append(QString::number(count) + u' ' + QLatin1StringView(row.Word));
    }
    const QString files = files_.size() == 1 ? u"1 file"_s : QString::number(files_.size()) + u" files"_s;
    return counts.isEmpty() ? u"No files"_s : files + u": "_s + counts.join(u", "_s);
}

QStringList SettledFilesModel::Headers() const
{
    return {u"File"_s, u"What became of it"_s};
}

QVariant SettledFilesModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const SettledFile& file = files_[static_cast<std::size_t>(index.row())];
    const QString name = NameToQt(file.FileName);
    if (role == Qt::DisplayRole)
        return index.column() == 0 ? name : WordOf(file.Outcome);
    if (role == Qt::DecorationRole && index.column() == 0)
        return icons_.Of(IconOf(name));
    return {};
}

} // namespace veldrane
