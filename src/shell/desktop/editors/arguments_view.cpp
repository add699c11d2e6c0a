#include "shell/desktop/editors/arguments_view.h"

#include "shell/desktop/editors/disabled_control.h"
#include "shell/desktop/editors/fill_control.h"
#include "shell/desktop/plain_tool_tip.h"
#include "shell/desktop/qt_text.h"
#include "ui_arguments_view.h"

#include <QShortcut>

#include <array>

namespace veldrane {
namespace {

using namespace Qt::StringLiterals;

struct CommandKey
{
    QKeyCombination Pressed;
    ArgumentKey Means;
};

constexpr std::array kCommandKeys{
    CommandKey{Qt::Key_Insert, ArgumentKey::Insert},
    CommandKey{Qt::Key_Delete, ArgumentKey::Delete},
    CommandKey{Qt::CTRL | Qt::Key_Up, ArgumentKey::ControlUp},
    CommandKey{Qt::CTRL | Qt::Key_Down, ArgumentKey::ControlDown},
};

// Its columns stand below each other in a font of one width alone.
QString KeysTip()
{
    return u"<pre>"_s + ToQt(kArgumentKeysHelp).toHtmlEscaped() + u"</pre>"_s;
}

} // namespace

ArgumentsView::ArgumentsView(QWidget* parent) : QWidget(parent), ui_(std::make_unique<Ui::ArgumentsView>())
{
    ui_->setupUi(this);
    ui_->lstArguments->setHeaderLabels({u"Argument"_s, u"Signature"_s});
    ui_->lstArguments->setToolTip(KeysTip());
    ui_->lstArguments->setAccessibleDescription(ToQt(kArgumentKeysHelp));
}

ArgumentsView::~ArgumentsView() = default;

void ArgumentsView::ShowList(ArgumentList& list)
{
    list_ = &list;
    connect(ui_->lstArguments, &EditorList::RowsSelected, this, [this](const std::vector<std::size_t>& rows) {
        list_->Select(rows);
        ShowButtons();
    });
    if (list_->WhyFixed().empty()) // else Return is that of the dialog
        connect(ui_->lstArguments, &EditorList::RowOpened, this, [this](std::size_t row) {
            list_->Select({row});
            list_->Edit();
        });
    ConnectButtons();
    ConnectKeys();
    ShowWhyFixed();
    ShowState();
    ui_->lstArguments->resizeColumnToContents(0);
}

// The list stays open to those who go through it by keys.
void ArgumentsView::ShowWhyFixed()
{
    const std::string& why = list_->WhyFixed();
    if (why.empty())
        return;
    for (QPushButton* button :
         {ui_->cmdNewArgument, ui_->cmdEditArgument, ui_->cmdDeleteArgument, ui_->cmdMoveUp, ui_->cmdMoveDown})
        DisableFor(*button, why);
    ui_->lstArguments->setToolTip(PlainToolTip(ToQt(why)));
    ui_->lstArguments->setAccessibleDescription(ToQt(why));
}

void ArgumentsView::ConnectButtons()
{
    connect(ui_->cmdNewArgument, &QPushButton::clicked, this, [this] { list_->New(); });
    connect(ui_->cmdEditArgument, &QPushButton::clicked, this, [this] { list_->Edit(); });
    connect(ui_->cmdDeleteArgument, &QPushButton::clicked, this, [this] { list_->Delete(); });
    connect(ui_->cmdMoveUp, &QPushButton::clicked, this, [this] { list_->MoveUp(); });
    connect(ui_->cmdMoveDown, &QPushButton::clicked, this, [this] { list_->MoveDown(); });
}

void ArgumentsView::ConnectKeys()
{
    for (const CommandKey& key : kCommandKeys) {
        auto* shortcut = new QShortcut(QKeySequence(key.Pressed), ui_->lstArguments);
        shortcut->setContext(Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, this, [this, key] { list_->KeyDown(key.Means); });
    }
}

void ArgumentsView::ShowState()
{
    std::vector<EditorRow> rows;
    for (const ArgumentRow& row : list_->Rows())
        rows.push_back({.Columns = {row.Name, row.Signature}});
    ui_->lstArguments->Show(rows, list_->Selected());
    ShowText(*ui_->txtSignature, list_->Signature());
    ui_->txtSignature->setCursorPosition(0);
    ShowButtons();
}

void ArgumentsView::ShowButtons()
{
    ui_->cmdEditArgument->setEnabled(list_->CanEdit());
    ui_->cmdDeleteArgument->setEnabled(list_->CanDelete());
    ui_->cmdMoveUp->setEnabled(list_->CanMoveUp());
    ui_->cmdMoveDown->setEnabled(list_->CanMoveDown());
}

} // namespace veldrane
