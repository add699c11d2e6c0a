#include "shell/desktop/file_conflict_dialog.h"

#include "shell/desktop/qt_text.h"
#include "text/runtime_error.h"
#include "ui_frm_file.h"

#include <QFontDatabase>
#include <QHeaderView>

namespace veldrane {
namespace {

using namespace Qt::StringLiterals;

constexpr int kNumberWidth = 7; // characters
constexpr QSize kSizeWithDifferences(860, 620);

} // namespace

FileConflictDialog::FileConflictDialog(frmFile& conflict, QWidget* parent)
    : QDialog(parent), conflict_(conflict), ui_(std::make_unique<Ui::frmFile>())
{
    ui_->setupUi(this);
    setWindowTitle(QLatin1StringView(frmFile::kTitle));
    ui_->lblFileName->setText(NameToQt(conflict.lblFileName()));
    QFont heading = ui_->lblFileName->font();
    heading.setBold(true);
    ui_->lblFileName->setFont(heading);
    ui_->lblFilenameExists->setText(NameToQt(conflict.lblFilenameExists()));
    ui_->lblPrompt->setText(QLatin1StringView(frmFile::kPrompt));
    ShowOptions();
    ConnectDifferences();
    connect(ui_->cmdOK, &QPushButton::clicked, this, [this] {
        conflict_.cmdOK_Click();
        accept();
    });
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(this, &QDialog::rejected, this, [this] { conflict_.cmdCancel_Click(); });
}

FileConflictDialog::~FileConflictDialog() = default;

void FileConflictDialog::ShowOptions()
{
    for (const frmFile::OptionRow& row : frmFile::Options()) {
        auto* option = findChild<QRadioButton*>(QLatin1StringView(row.Name));
        option->setText(QLatin1StringView(row.Caption));
        connect(option, &QRadioButton::toggled, this, [this, answer = row.Answer](bool on) {
            if (on)
                conflict_.opt_Click(answer);
        });
        if (row.Answer != conflict_.Option())
            continue;
        option->setChecked(true);
        option->setFocus();
    }
}

void FileConflictDialog::ConnectDifferences()
{
    QTreeView& view = *ui_->lstDifferences;
    view.setModel(&differences_);
    view.setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    view.setSelectionBehavior(QAbstractItemView::SelectItems); // a whole row would hide its colours
    view.header()->setMinimumSectionSize(0);
    ui_->fraDifferences->hide();
    connect(ui_->cmdShowDifferences, &QPushButton::toggled, this, &FileConflictDialog::ShowDifferences);
    connect(ui_->optSideBySide, &QRadioButton::toggled, this, &FileConflictDialog::LayOut);
    connect(ui_->cmdNextDifference, &QPushButton::clicked, this,
            [this] { GoTo(differences_.DifferenceBelow(ui_->lstDifferences->currentIndex().row())); });
    connect(ui_->cmdPreviousDifference, &QPushButton::clicked, this,
            [this] { GoTo(differences_.DifferenceAbove(ui_->lstDifferences->currentIndex().row())); });
}

void FileConflictDialog::ShowDifferences(bool shown)
{
    if (shown && !std::exchange(isRead_, true))
        ReadDifferences();
    ui_->fraDifferences->setVisible(shown);
    if (shown && ui_->lblDifferences->isHidden())
        resize(size().expandedTo(kSizeWithDifferences));
}

void FileConflictDialog::ReadDifferences()
{
    ui_->lblDifferences->hide();
    try {
        differences_.Show(conflict_.Differences());
    } catch (const RuntimeError& error) {
        return TellInPlaceOfDifferences(u"The differences can't be shown. "_s + NameToQt(error.Description()));
    }
    if (!differences_.DifferenceBelow(-1))
        return TellInPlaceOfDifferences(u"The new text is the same as the file."_s);
    LayOut();
}

void FileConflictDialog::TellInPlaceOfDifferences(const QString& words)
{
    ui_->lblDifferences->setText(words);
    ui_->lblDifferences->show();
    const std::initializer_list<QWidget*> hidden{ui_->lstDifferences, ui_->optUnified, ui_->optSideBySide,
                                                 ui_->cmdNextDifference, ui_->cmdPreviousDifference};
    for (QWidget* control : hidden)
        control->hide();
}

// Unified, a long line is scrolled to; side by side, both texts share the width.
void FileConflictDialog::LayOut()
{
    const bool sideBySide = ui_->optSideBySide->isChecked();
    differences_.SetLayout(sideBySide ? DifferenceLayout::SideBySide : DifferenceLayout::Unified);
    QHeaderView& header = *ui_->lstDifferences->header();
    const int character = ui_->lstDifferences->fontMetrics().horizontalAdvance(u'0');
    header.setStretchLastSection(!sideBySide);
    for (int column = 0; column < differences_.columnCount(); ++column) {
        const bool lines = differences_.HoldsLines(column);
        header.setSectionResizeMode(column, lines && sideBySide ? QHeaderView::Stretch : QHeaderView::Interactive);
        header.resizeSection(column, character * (lines ? static_cast<int>(differences_.Longest()) + 2 : kNumberWidth));
    }
    GoTo(differences_.DifferenceBelow(-1));
}

void FileConflictDialog::GoTo(std::optional<int> row)
{
    if (!row)
        return;
    const QModelIndex index = differences_.index(*row, 0);
    ui_->lstDifferences->setCurrentIndex(index);
    ui_->lstDifferences->scrollTo(index, QAbstractItemView::PositionAtCenter);
}

} // namespace veldrane
