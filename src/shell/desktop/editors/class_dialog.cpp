#include "shell/desktop/editors/class_dialog.h"

#include "shell/desktop/editors/class_tools.h"
#include "shell/desktop/editors/fill_control.h"
#include "shell/desktop/qt_text.h"
#include "ui_frm_add_edit_class.h"

#include <QHeaderView>
#include <QToolButton>

#include <chrono>

namespace veldrane {
namespace {

using namespace Qt::StringLiterals;

constexpr std::chrono::milliseconds kUntilSample{100};

// The first "&" of a caption is its access key; any other is of a table's name.
void ShowCaption(QLabel& label, std::string_view caption)
{
    if (caption.empty())
        return;
    QString text = NameToQt(caption);
    const qsizetype behindKey = text.indexOf(u'&') + 1;
    label.setText(text.left(behindKey) + text.mid(behindKey).replace(u'&', u"&&"_s));
}

std::vector<EditorRow> ToEditorRows(const std::vector<MemberRow>& members)
{
    std::vector<EditorRow> rows;
    rows.reserve(members.size());
    for (const MemberRow& member : members)
        rows.push_back({.Columns = {member.Text, member.Second}, .Icon = member.Icon});
    return rows;
}

} // namespace

ClassDialog::ClassDialog(frmAddEditClass& form, const PreviewLook& look, QWidget* parent)
    : EditorDialog(parent), form_(form), ui_(std::make_unique<Ui::frmAddEditClass>())
{
    ui_->setupUi(this);
    ui_->splPreview->setStretchFactor(1, 1); // code is wider than what it is made of
    ui_->lstPreview->SetLook(look);
    FindLists();
    AddTools();
    ConnectLists();
    for (EditorList* fields : {ui_->lstParentFields, ui_->lstFields})
        fields->KeepSelectionAChoice(); // of the two that are joined
    ClassDialog::ShowState();
    ShowSample();
    ConnectRules();
    ConnectControls();
    FocusOn(form_.FirstFocus());
}

ClassDialog::~ClassDialog() = default;

void ClassDialog::ConnectRules()
{
    Follow(form_.Changed);
    Follow(form_.FocusWanted);
    closeWanted_ = form_.CloseWanted.Connect([this] { done(Rejected); });
    ConnectButtons(*ui_->cmdOK, *ui_->cmdCancel);
    tmrSample_.setSingleShot(true);
    tmrSample_.setInterval(kUntilSample);
    connect(&tmrSample_, &QTimer::timeout, this, &ClassDialog::ShowSample);
}

void ClassDialog::ConnectControls()
{
    const auto onText = [this](QLineEdit* field, const auto& change) {
        connect(field, &QLineEdit::textChanged, this, [change](const QString& text) { change(FromQt(text)); });
    };
    onText(ui_->txtClassName, [this](const std::string& text) { form_.txtClassName_Change(text); });
    onText(ui_->txtTableName, [this](const std::string& text) { form_.txtTableName_Change(text); });
    onText(ui_->txtCollectionName, [this](const std::string& text) { form_.txtCollectionName_Change(text); });
    connect(ui_->chkGenerateCollection, &QCheckBox::clicked, this, [this] { form_.chkGenerateCollection_Click(); });
    connect(ui_->chkIncludeAddExisting, &QCheckBox::clicked, this, [this] { form_.chkIncludeAddExisting_Click(); });
    connect(ui_->chkNewKey, &QCheckBox::clicked, this, [this] { form_.chkNewKey_Click(); });
    connect(ui_->cmdAddRelationship, &QPushButton::clicked, this, [this] { form_.cmdAddRelationship_Click(); });
    connect(ui_->tabMain, &QTabWidget::currentChanged, this, [this](int tab) {
        form_.SelectTab(static_cast<ClassTab>(tab));
        ShowSample();
    });
}

// Those without a bar have no tools.
void ClassDialog::FindLists()
{
    const QStringList properties{u"Property"_s, u"Type"_s};
    const QStringList fields{u"Field"_s, u"Type"_s};
    lists_ = {{{ui_->lstProperties, ui_->txtFilterProperties, properties, ui_->actBarProperties, {}},
               {ui_->lstPlusProperties, ui_->txtFilterPlusProperties, properties, ui_->actBarPlusProperties, {}},
               {ui_->lstMethods, ui_->txtFilterMethods, {u"Method"_s, u"Returns"_s}, ui_->actBarMethods, {}},
               {ui_->lstEvents, ui_->txtFilterEvents, {u"Event"_s}, ui_->actBarEvents, {}},
               {ui_->lstParentFields, ui_->txtFilterParentFields, fields, nullptr, {}},
               {ui_->lstFields, ui_->txtFilterFields, fields, nullptr, {}},
               {ui_->lstJoins, ui_->txtFilterJoins, {u"Join"_s}, ui_->actBarJoins, {}}}};
}

void ClassDialog::ConnectLists()
{
    for (std::size_t index = 0; index < kClassLists; ++index) {
        const auto list = static_cast<ClassList>(index);
        EditorList& control = *lists_[index].List;
        control.FilterBy(*lists_[index].Filter);
        control.setHeaderLabels(lists_[index].Columns);
        control.header()->setStretchLastSection(false);
        control.header()->setSectionResizeMode(QHeaderView::ResizeToContents);
        control.header()->setSectionResizeMode(0, QHeaderView::Stretch);
        connect(&control, &EditorList::RowsSelected, this,
                [this, list](const std::vector<std::size_t>& rows) { form_.Select(list, rows); });
        if (list != ClassList::lstJoins)
            connect(&control, &EditorList::RowOpened, this, [this, list](std::size_t row) { Open(list, row); });
    }
}

void ClassDialog::AddTools()
{
    for (const ClassTool& tool : ClassTools()) {
        QAction* action = MakeAction(tool, this);
        AddTool(*action, lists_[static_cast<std::size_t>(tool.List)]);
        connect(action, &QAction::triggered, this, [this, name = tool.Name] { form_.actBar_Click(name); });
    }
}

// A button for the mouse, and the list's menu for the keys: Return on a button would be that of the dialog.
void ClassDialog::AddTool(QAction& action, ListControls& controls)
{
    auto* button = new QToolButton(this);
    button->setObjectName(action.objectName());
    button->setDefaultAction(&action);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    controls.Bar->addWidget(button);
    controls.List->addAction(&action);
    tools_.push_back(&action);
}

void ClassDialog::Open(ClassList list, std::size_t row)
{
    form_.Select(list, {row});
    if (list == ClassList::lstParentFields || list == ClassList::lstFields)
        form_.cmdAddRelationship_Click();
    else
        form_.actBar_Click(OpeningTool(list));
}

void ClassDialog::ShowState()
{
    setWindowTitle(NameToQt(form_.Caption()));
    ui_->tabMain->setCurrentIndex(static_cast<int>(form_.Tab()));
    ShowNames();
    ShowWords();
    for (std::size_t list = 0; list < kClassLists; ++list)
        ShowList(static_cast<ClassList>(list));
    ShowStates();
    tmrSample_.start();
}

void ClassDialog::ShowNames()
{
    ShowText(*ui_->txtClassName, form_.txtClassName());
    ShowText(*ui_->txtTableName, form_.txtTableName());
    ShowText(*ui_->txtParentClassName, form_.txtParentClassName());
    ShowText(*ui_->txtCollectionName, form_.txtCollectionName());
    ui_->lblClassNameTrouble->ShowTrouble(form_.Trouble(ClassField::ClassName));
    ui_->lblTableNameTrouble->ShowTrouble(form_.Trouble(ClassField::TableName));
    ui_->lblCollectionNameTrouble->ShowTrouble(form_.Trouble(ClassField::CollectionName));
}

void ClassDialog::ShowWords()
{
    const std::string hint = form_.ClassNameHint();
    ui_->lblClassNameHint->setText(NameToQt(hint));
    ui_->lblClassNameHint->setVisible(!hint.empty());
    ui_->lblReadOnly->setText(ToQt(form_.lblReadOnly()));
    ui_->lblCollectionHelp->setText(ToQt(form_.CollectionHelp()));
    ui_->lblCollectionHelp->setVisible(!form_.CollectionHelp().empty());
    ShowCaption(*ui_->lblParentFields, form_.lblParentFields());
    ShowCaption(*ui_->lblFields, form_.lblFields());
    ui_->chkGenerateCollection->setChecked(form_.chkGenerateCollection());
    ui_->chkIncludeAddExisting->setChecked(form_.chkIncludeAddExisting());
    ui_->chkNewKey->setChecked(form_.chkNewKey());
}

void ClassDialog::ShowList(ClassList list)
{
    ListControls& controls = lists_[static_cast<std::size_t>(list)];
    const std::vector<MemberRow>& rows = form_.Rows(list);
    const std::vector<std::size_t>& selected = form_.Selected(list);
    if (controls.Rows == rows && controls.List->SelectedRows() == selected)
        return;
    controls.Rows = rows;
    controls.List->Show(ToEditorRows(rows), selected);
}

void ClassDialog::ShowStates()
{
    for (QWidget* control :
         {static_cast<QWidget*>(ui_->txtTableName), static_cast<QWidget*>(ui_->txtParentClassName),
          static_cast<QWidget*>(ui_->txtCollectionName), static_cast<QWidget*>(ui_->chkNewKey),
          static_cast<QWidget*>(ui_->chkIncludeAddExisting), static_cast<QWidget*>(ui_->cmdAddRelationship)})
        control->setEnabled(form_.IsEnabled(FromQt(control->objectName())));
    for (QAction* tool : tools_)
        tool->setEnabled(form_.IsEnabled(FromQt(tool->objectName())));
}

void ClassDialog::ShowSample()
{
    tmrSample_.stop();
    ui_->lstPreview->ShowLines(form_.Preview());
}

} // namespace veldrane
