#include "shell/desktop/gen_code_dialog.h"

#include "shell/desktop/file_conflict_dialog.h"
#include "shell/desktop/folder_name_dialog.h"
#include "shell/desktop/qt_text.h"
#include "text/runtime_error.h"
#include "ui_frm_gen_code.h"

#include <QAction>
#include <QDir>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>

#include <algorithm>
#include <filesystem>

namespace veldrane {
namespace {

using namespace Qt::StringLiterals;

constexpr int kPictureSize = 64;

// A key that is held down from a former page, or from the question, has not been pressed here.
bool IsHeldKey(const QEvent& event)
{
    if (event.type() != QEvent::KeyPress)
        return false;
    const auto& press = static_cast<const QKeyEvent&>(event);
    const std::initializer_list<int> keys{Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape};
    return press.isAutoRepeat() && std::find(keys.begin(), keys.end(), press.key()) != keys.end();
}

} // namespace

GenCodeDialog::GenCodeDialog(const Application& application, TTCProject& project, KZMClasses& classes, QWidget* parent)
    : QDialog(parent), rules_(application, project, classes, *this), ui_(std::make_unique<Ui::frmGenCode>()),
      newFolder_(new QAction(u"&New Folder..."_s, this)), popFolder_(new QMenu(this))
{
    ui_->setupUi(this);
    overCancel_ = new ArrowOver(*ui_->cmdCancel); // the button's own
    setWindowIcon(Icon("Module"));
    ui_->imgWizard->setPixmap(Icon("Module").pixmap(kPictureSize));
    ui_->lstFiles->setModel(&files_);
    ui_->lstFiles->header()->setStretchLastSection(false);
    ui_->lstFiles->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    ui_->lstFiles->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    ConnectButtons();
    KeepFolderThatGoes();
    ConnectFolder();
    ConnectOptions();
    changed_ = rules_.Changed.Connect([this] { ShowAll(); });
    ShowAll();
}

GenCodeDialog::~GenCodeDialog() = default;

void GenCodeDialog::reject()
{
    rules_.cmdCancel_Click();
}

bool GenCodeDialog::eventFilter(QObject* watched, QEvent* event)
{
    return IsHeldKey(*event) || QDialog::eventFilter(watched, event);
}

void GenCodeDialog::ConnectButtons()
{
    const std::initializer_list<QObject*> pressed{this, ui_->cmdBack, ui_->cmdNext, ui_->cmdCancel};
    for (QObject* control : pressed)
        control->installEventFilter(this);
    tmrStart_.setSingleShot(true);
    connect(&tmrStart_, &QTimer::timeout, this, [this] { rules_.tmrStart_Timer(); });
    connect(ui_->cmdBack, &QPushButton::clicked, this, [this] { rules_.cmdBack_Click(); });
    connect(ui_->cmdNext, &QPushButton::clicked, this, [this] { rules_.cmdNext_Click(); });
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui_->lblOpenProject, &QPushButton::clicked, this, [this] { rules_.lblOpenProject_Click(); });
}

// A folder that others take away pushes its row's neighbour into its place, which nobody has chosen. To be connected
// before the tree is.
void GenCodeDialog::KeepFolderThatGoes()
{
    connect(&folders_, &QFileSystemModel::rowsAboutToBeRemoved, this,
            [this] { quietTree_.emplace(ui_->treFolder->selectionModel()); });
    connect(&folders_, &QFileSystemModel::rowsRemoved, this, [this] { quietTree_.reset(); });
    connect(&folders_, &QFileSystemModel::rowsRemoved, this, &GenCodeDialog::ShowFolderInTree, Qt::QueuedConnection);
}

void GenCodeDialog::ConnectFolder()
{
    folders_.setFilter(QDir::Dirs | QDir::Drives | QDir::NoDotAndDotDot);
    QTreeView& tree = *ui_->treFolder;
    tree.setModel(&folders_);
    for (int column = 1; column < folders_.columnCount(); ++column)
        tree.hideColumn(column);
    newFolder_->setObjectName(u"NewFolder"_s);
    popFolder_->setObjectName(u"popFolder"_s);
    popFolder_->addAction(newFolder_);
    connect(newFolder_, &QAction::triggered, this, [this] { rules_.NewFolder(); });
    connect(ui_->cmdNewFolder, &QPushButton::clicked, newFolder_, &QAction::trigger);
    connect(&tree, &QTreeView::customContextMenuRequested, this, &GenCodeDialog::OfferFolderMenu);
    connect(tree.selectionModel(), &QItemSelectionModel::currentChanged, this, &GenCodeDialog::ChooseInTree);
    connect(ui_->txtFolder, &QLineEdit::textEdited, this, [this](const QString& path) {
        rules_.treFolder_Change(FromQt(path));
        ShowFolderInTree();
    });
    connect(&folders_, &QFileSystemModel::directoryLoaded, this, &GenCodeDialog::ScrollToFolder);
    connect(&folders_, &QFileSystemModel::layoutChanged, this, &GenCodeDialog::ScrollToFolder);
}

void GenCodeDialog::ConnectOptions()
{
    const std::initializer_list<std::pair<QRadioButton*, std::int32_t>> options{
        {ui_->optPrompt, overwrite_mode::kPrompt},
        {ui_->optLeave, overwrite_mode::kLeave},
        {ui_->optOverwrite, overwrite_mode::kBackupAndOverwrite},
    };
    for (const auto& [option, mode] : options) {
        option->setChecked(rules_.Mode() == mode);
        connect(option, &QRadioButton::toggled, this, [this, mode = mode](bool on) {
            if (on)
                rules_.opt_Click(mode);
        });
    }
    ui_->chkCompile->setEnabled(rules_.MayCompile());
    ui_->chkCompile->setChecked(rules_.chkCompile());
    ui_->lblMayCompile->setVisible(!rules_.MayCompile());
    connect(ui_->chkCompile, &QCheckBox::toggled, this, [this](bool on) { rules_.chkCompile_Click(on); });
}

void GenCodeDialog::ShowAll()
{
    ShowPage();
    ShowButton(*ui_->cmdBack, rules_.cmdBack());
    ShowButton(*ui_->cmdNext, rules_.cmdNext());
    ShowButton(*ui_->cmdCancel, rules_.cmdCancel());
    newFolder_->setEnabled(!rules_.treFolder().empty());
    ui_->cmdNewFolder->setEnabled(newFolder_->isEnabled());
    ShowFolder();
    ShowSteps();
    ShowEnd();
    overCancel_->Refresh();
    if (rules_.tmrStart())
        StartWhenPainted();
}

// The focus goes to what the page is about.
void GenCodeDialog::ShowPage()
{
    const int page = rules_.tabMain();
    ui_->lblInst->setText(NameToQt(rules_.lblInst()));
    ui_->lblInst->setVisible(page == wizard_page::kIntroduction || rules_.HasEnded());
    ui_->fraTarget->setVisible(page >= wizard_page::kOptions);
    ui_->txtTarget->setText(NameToQt(rules_.treFolder()));
    if (std::exchange(shownPage_, page) == page)
        return;
    ui_->tabMain->setCurrentIndex(page);
    if (page == wizard_page::kFolder)
        ui_->txtFolder->setFocus();
    else if (page == wizard_page::kProgress)
        ui_->cmdCancel->setFocus();
    else
        ui_->cmdNext->setFocus();
}

void GenCodeDialog::ShowButton(QPushButton& shown, const WizardButton& button)
{
    const QString caption = NameToQt(button.Caption);
    if (shown.text() != caption)
        shown.setText(caption);
    shown.setEnabled(button.Enabled);
    shown.setVisible(button.Visible);
}

void GenCodeDialog::ShowFolder()
{
    const QString path = NameToQt(rules_.treFolder());
    if (rules_.tabMain() != wizard_page::kFolder || (ui_->txtFolder->text() == path && !path.isEmpty()))
        return;
    if (folders_.rootPath().isEmpty() || folders_.rootPath() == u"."_s)
        folders_.setRootPath(u"/"_s);
    ui_->txtFolder->setText(path);
    ShowFolderInTree();
}

void GenCodeDialog::ShowFolderInTree()
{
    QTreeView& tree = *ui_->treFolder;
    const QString path = ui_->txtFolder->text();
    const QModelIndex index = QDir::isAbsolutePath(path) ? folders_.index(path) : QModelIndex();
    const QSignalBlocker quiet(tree.selectionModel()); // what the person has typed stays as it is
    tree.setCurrentIndex(index);
    tree.viewport()->update();
    ScrollToFolder();
    TellOfFolder();
}

// Folders are read in the background, and push the current one away. Who walks through the tree is not disturbed.
void GenCodeDialog::ScrollToFolder()
{
    if (!ui_->treFolder->hasFocus())
        ui_->treFolder->scrollTo(ui_->treFolder->currentIndex(), QAbstractItemView::PositionAtCenter);
}

void GenCodeDialog::TellOfFolder()
{
    const bool isThere = QFileInfo(ui_->txtFolder->text()).isDir();
    ui_->lblFolderState->setText(isThere ? QString() : u"There is no such folder."_s);
}

void GenCodeDialog::ChooseInTree(const QModelIndex& index)
{
    if (!index.isValid())
        return;
    const QString path = folders_.filePath(index);
    ui_->txtFolder->setText(path);
    rules_.treFolder_Change(FromQt(path));
    TellOfFolder();
}

void GenCodeDialog::OfferFolderMenu(const QPoint& where)
{
    if (ui_->treFolder->indexAt(where).isValid())
        popFolder_->popup(ui_->treFolder->viewport()->mapToGlobal(where));
}

void GenCodeDialog::ShowSteps()
{
    int number = 0;
    for (const WizardStep& step : rules_.Steps()) {
        const QString suffix = QString::number(++number);
        auto* label = findChild<QLabel*>(u"lblProgress"_s + suffix);
        QFont weighed = label->font();
        weighed.setBold(step.Bold);
        label->setFont(weighed);
        label->setText(NameToQt(step.lblProgress));
        findChild<QLabel*>(u"imgStep"_s + suffix)->setText(step.imgStep ? u"\u2713"_s : QString());
    }
    ui_->Progress->setValue(rules_.Progress());
}

void GenCodeDialog::ShowEnd()
{
    const bool ended = rules_.HasEnded();
    QFont heading = font();
    heading.setBold(ended);
    ui_->lblInst->setFont(heading);
    ui_->fraSteps->setVisible(!ended);
    ui_->lblOpened->setText(NameToQt(rules_.lblOpened()));
    ui_->lblOpened->setVisible(!rules_.lblOpened().empty());
    if (!ended || !ui_->fraResult->isHidden())
        return ui_->fraResult->setVisible(ended);
    ui_->fraResult->show();
    files_.Show(rules_.Files());
    ui_->lblFiles->setText(files_.Summary());
    ui_->lblOpenProject->setVisible(rules_.CanOpenProject());
    ui_->lblWarnings->setText(NameToQt(rules_.lblWarnings()));
    ui_->lblWarnings->setVisible(!rules_.lblWarnings().empty());
    ui_->txtWarnings->setPlainText(ToQt(rules_.txtWarnings()));
    ui_->cmdCancel->setDefault(true);
    ui_->lstFiles->setFocus();
}

// A timer of no length fires behind what is to be painted.
void GenCodeDialog::StartWhenPainted()
{
    repaint();
    tmrStart_.start(0);
}

void GenCodeDialog::Show(frmFile& conflict)
{
    FileConflictDialog(conflict, this).exec();
}

std::string GenCodeDialog::DefaultFolder()
{
    return FromQt(QDir::homePath());
}

std::string GenCodeDialog::NewFolderName()
{
    return AskForFolderName(this);
}

void GenCodeDialog::MakeFolder(const std::string& path)
{
    std::error_code error;
    std::filesystem::create_directories(path, error);
    if (error)
        throw RuntimeError(error_number::kPathAccess, "MakeFolder", path + ": " + error.message());
}

void GenCodeDialog::Close()
{
    QDialog::reject();
}

} // namespace veldrane
