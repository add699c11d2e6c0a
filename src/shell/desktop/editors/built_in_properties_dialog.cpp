#include "shell/desktop/editors/built_in_properties_dialog.h"

#include "ui_frm_built_in_properties.h"

#include <algorithm>

namespace veldrane {
namespace {

using namespace Qt::StringLiterals;

EditorRow ShownRow(const BuiltInPropertyRow& row)
{
    return {.Columns = {row.Name, row.Description},
            .Icon = row.Icon,
            .Ticked = row.Ticked,
            .Enabled = row.Enabled,
            .Trouble = row.Trouble};
}

} // namespace

BuiltInPropertiesDialog::BuiltInPropertiesDialog(frmBuiltInProperties& form, const PreviewLook& look, QWidget* parent)
    : EditorDialog(parent), form_(form), ui_(std::make_unique<Ui::frmBuiltInProperties>())
{
    ui_->setupUi(this);
    ui_->lstPreview->SetLook(look);
    EditorList& list = *ui_->lstProperties;
    list.setHeaderLabels({u"Property"_s, u"Description"_s});
    list.FilterBy(*ui_->txtFilter);
    ConnectButtons(*ui_->cmdOK, *ui_->cmdCancel);
    connect(&list, &EditorList::RowsTicked, this, [this](const std::vector<std::size_t>& rows, bool ticked) {
        form_.lstProperties_ItemCheck(rows, ticked);
        ShowState();
    });
    connect(&list, &EditorList::RowsSelected, this, &BuiltInPropertiesDialog::ShowPreview);
    ShowState();
    for (int column = 0; column < list.columnCount(); ++column)
        list.resizeColumnToContents(column);
    resize(sizeHint()); // Qt alone gives a dialog two thirds of the screen at most
    SelectFirstThatCanBeAdded();
    list.setFocus();
}

BuiltInPropertiesDialog::~BuiltInPropertiesDialog() = default;

void BuiltInPropertiesDialog::SelectFirstThatCanBeAdded()
{
    const auto& rows = form_.lstProperties();
    const auto first =
        std::find_if(rows.begin(), rows.end(), [](const BuiltInPropertyRow& row) { return row.Enabled; });
    if (first != rows.end())
        ui_->lstProperties->SelectRow(static_cast<std::size_t>(first - rows.begin()));
}

void BuiltInPropertiesDialog::ShowState()
{
    std::vector<EditorRow> rows;
    for (const BuiltInPropertyRow& row : form_.lstProperties())
        rows.push_back(ShownRow(row));
    ui_->lstProperties->Show(rows, ui_->lstProperties->SelectedRows());
    ShowPreview();
}

// Rows that can't be used can't be selected either: where there is no other, the first is shown.
void BuiltInPropertiesDialog::ShowPreview()
{
    const std::vector<std::size_t> selected = ui_->lstProperties->SelectedRows();
    ui_->lstPreview->ShowLines(form_.Preview(selected.empty() ? 0 : selected.front()));
}

} // namespace veldrane
