#include "shell/desktop/editors/built_in_members_dialog.h"

#include "editors/frm_built_in_events.h"
#include "editors/frm_built_in_methods.h"
#include "shell/desktop/qt_text.h"
#include "ui_frm_built_in_members.h"

#include <QHeaderView>

#include <algorithm>
#include <utility>

namespace veldrane {
namespace {

using namespace Qt::StringLiterals;

BuiltInMembersForm FormOf(frmBuiltInMethods& form)
{
    return {.Name = "frmBuiltInMethods",
            .ListName = "lstMethods",
            .Title = "Add Built-In Methods",
            .Kind = "Method",
            .Rows = [&form] { return form.lstMethods(); },
            .Tick = [&form](const auto& rows, bool on) { form.lstMethods_ItemCheck(rows, on); },
            .Preview = [&form](std::size_t row) { return form.Preview(row); },
            .MayAccept = [&form] { return form.cmdOK_Click(); },
            .MayCancel = frmBuiltInMethods::cmdCancel_Click};
}

BuiltInMembersForm FormOf(frmBuiltInEvents& form)
{
    return {.Name = "frmBuiltInEvents",
            .ListName = "lstEvents",
            .Title = "Add Built-In Events",
            .Kind = "Event",
            .Rows = [&form] { return form.lstEvents(); },
            .Tick = [&form](const auto& rows, bool on) { form.lstEvents_ItemCheck(rows, on); },
            .Preview = [&form](std::size_t row) { return form.Preview(row); },
            .MayAccept = [&form] { return form.cmdOK_Click(); },
            .MayCancel = frmBuiltInEvents::cmdCancel_Click};
}

EditorRow ShownRow(const BuiltInRow& row)
{
    return {.Columns = {row.Name, row.Description},
            .Icon = row.Icon,
            .Ticked = row.Ticked,
            .Enabled = !row.IsInClass,
            .Trouble = row.Trouble};
}

} // namespace

BuiltInMembersDialog::BuiltInMembersDialog(frmBuiltInMethods& form, const PreviewLook& look, QWidget* parent)
    : BuiltInMembersDialog(FormOf(form), look, parent)
{}

BuiltInMembersDialog::BuiltInMembersDialog(frmBuiltInEvents& form, const PreviewLook& look, QWidget* parent)
    : BuiltInMembersDialog(FormOf(form), look, parent)
{}

BuiltInMembersDialog::BuiltInMembersDialog(BuiltInMembersForm form, const PreviewLook& look, QWidget* parent)
    : EditorDialog(parent), form_(std::move(form)), ui_(std::make_unique<Ui::frmBuiltInMembers>())
{
    ui_->setupUi(this);
    SetNames();
    ui_->lstPreview->SetLook(look);
    EditorList& list = *ui_->lstMembers;
    list.header()->setStretchLastSection(false);
    list.header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    list.FilterBy(*ui_->txtFilter);
    ConnectButtons(*ui_->cmdOK, *ui_->cmdCancel);
    connect(&list, &EditorList::RowsTicked, this, [this](const std::vector<std::size_t>& rows, bool ticked) {
        form_.Tick(rows, ticked);
        ShowState();
    });
    connect(&list, &EditorList::RowsSelected, this, &BuiltInMembersDialog::ShowRowInHand);
    ShowState();
    resize(sizeHint());                         // Qt alone gives a dialog two thirds of the screen at most
    list.header()->setStretchLastSection(true); // what is stretched has no width of its own to ask for
    SelectFirstThatCanBeAdded();
    list.setFocus();
}

BuiltInMembersDialog::~BuiltInMembersDialog() = default;

void BuiltInMembersDialog::SetNames()
{
    setObjectName(QLatin1StringView(form_.Name));
    setWindowTitle(QLatin1StringView(form_.Title));
    const QString kind = QLatin1StringView(form_.Kind);
    EditorList& list = *ui_->lstMembers;
    list.setObjectName(QLatin1StringView(form_.ListName));
    list.setHeaderLabels({kind, u"Description"_s});
    list.setAccessibleName(u"Built-in %1s"_s.arg(kind.toLower()));
    list.setToolTip(
        u"Ticked %1s are added to the class. Those that it has can't be unticked here."_s.arg(kind.toLower()));
}

void BuiltInMembersDialog::SelectFirstThatCanBeAdded()
{
    const std::vector<BuiltInRow> rows = form_.Rows();
    const auto first = std::find_if(rows.begin(), rows.end(), [](const BuiltInRow& row) { return !row.IsInClass; });
    if (first != rows.end())
        ui_->lstMembers->SelectRow(static_cast<std::size_t>(first - rows.begin()));
}

void BuiltInMembersDialog::ShowState()
{
    std::vector<EditorRow> rows;
    for (const BuiltInRow& row : form_.Rows())
        rows.push_back(ShownRow(row));
    ui_->lstMembers->Show(rows, ui_->lstMembers->SelectedRows());
    ShowRowInHand();
}

void BuiltInMembersDialog::ShowRowInHand()
{
    const std::vector<std::size_t> selected = ui_->lstMembers->SelectedRows();
    if (selected.empty()) {
        ui_->lblTrouble->ShowTrouble("");
        return ui_->lstPreview->ShowLines(TTCOutputs());
    }
    ui_->lblTrouble->ShowTrouble(form_.Rows().at(selected.front()).Trouble);
    ui_->lstPreview->ShowLines(form_.Preview(selected.front()));
}

} // namespace veldrane
