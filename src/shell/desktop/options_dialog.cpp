#include "shell/desktop/options_dialog.h"

#include "shell/desktop/qt_color.h"
#include "shell/desktop/qt_font.h"
#include "shell/desktop/qt_text.h"
#include "ui_frm_options.h"

#include <QPainter>
#include <QPixmap>

#include <array>

namespace veldrane {
namespace {

using namespace Qt::StringLiterals;

// The controls of one colour.
struct ColorControls
{
    OptionColor Which;
    const char* Button;
    const char* Reset;  // "" for a colour that has none
    const char* Sample; // a line in this colour; "" for the background
    LineClass Weight;   // of that line
};

constexpr auto kColorControls = std::to_array<ColorControls>({
    {OptionColor::Background, "cmdBackgroundColor", "cmdResetBackgroundColor", "", LineClass::Code},
    {OptionColor::Hidden, "cmdHiddenTextColor", "cmdResetHiddenTextColor", "Attribute VB_Name = \"Customer\"",
     LineClass::Hidden},
    {OptionColor::Comment, "cmdCommentTextColor", "", "Customer.cls is a class of your project.", LineClass::Note},
    {OptionColor::Key, "cmdKeyTextColor", "", "Key Type: Primary/Unique Key", LineClass::Key},
    {OptionColor::Header, "cmdHeaderTextColor", "cmdResetHeaderTextColor", "Public Property Get City() as String",
     LineClass::HeadProperty},
    {OptionColor::Code, "cmdCodeTextColor", "cmdResetCodeTextColor", "    City = mCity", LineClass::Code},
    {OptionColor::Error, "cmdErrorTextColor", "", "' This name is a reserved word.", LineClass::Alert},
});

QIcon Swatch(const QColor& color, const QSize& size, const QColor& frame)
{
    QPixmap picture(size);
    picture.fill(color);
    QPainter painter(&picture);
    painter.setPen(frame);
    painter.drawRect(picture.rect().adjusted(0, 0, -1, -1));
    return picture;
}

QString Words(const PreviewFont& font)
{
    QString words = NameToQt(font.Name) + u", "_s + QString::number(font.Size) + u" points"_s;
    if (font.Bold)
        words += u", bold"_s;
    if (font.Italic)
        words += u", italic"_s;
    return words;
}

} // namespace

OptionsDialog::OptionsDialog(frmOptions& options, QWidget* parent)
    : QDialog(parent), options_(options), ui_(std::make_unique<Ui::frmOptions>())
{
    ui_->setupUi(this);
    ui_->lstHelpMessages->setHeaderLabels({u"Message"_s, u"Shown"_s});
    ui_->lstHelpMessages->header()->setStretchLastSection(false);
    ui_->lstHelpMessages->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    ConnectGeneral();
    ConnectColors();
    ConnectFont();
    connect(ui_->cmdOK, &QPushButton::clicked, this, &OptionsDialog::OK);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    ShowColors();
    ShowFont();
    ShowHelpMessages();
}

OptionsDialog::~OptionsDialog() = default;

void OptionsDialog::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        ShowColors();
}

void OptionsDialog::ConnectGeneral()
{
    ui_->chkDontShowStartupDialog->setChecked(options_.chkDontShowStartupDialog);
    ui_->chkShowSystemTables->setChecked(options_.chkShowSystemTables);
    connect(ui_->chkDontShowStartupDialog, &QCheckBox::toggled, this,
            [this](bool checked) { options_.chkDontShowStartupDialog = checked; });
    connect(ui_->chkShowSystemTables, &QCheckBox::toggled, this,
            [this](bool checked) { options_.chkShowSystemTables = checked; });
    ConnectLimit(*ui_->cmbMaxTablesToDisplay, &frmOptions::cmbMaxTablesToDisplay, &LimitEntry::Text);
    ConnectLimit(*ui_->cmbMaxProcsToDisplay, &frmOptions::cmbMaxProcsToDisplay, &LimitEntry::TextOfProcedures);
    connect(ui_->cmdResetMessages, &QPushButton::clicked, this, [this] { options_.ResetMessages(); });
    helpMessagesChanged_ = options_.HelpMessagesChanged.Connect([this] { ShowHelpMessages(); });
}

void OptionsDialog::ConnectLimit(QComboBox& box, std::string frmOptions::*key, std::string_view LimitEntry::*text)
{
    for (const LimitEntry& entry : kLimitEntries)
        box.addItem(NameToQt(entry.*text), NameToQt(entry.Key));
    box.setCurrentIndex(box.findData(NameToQt(options_.*key)));
    connect(&box, &QComboBox::currentIndexChanged, this,
            [this, &box, key] { options_.*key = FromQt(box.currentData().toString()); });
}

void OptionsDialog::ConnectColors()
{
    for (const ColorControls& controls : kColorControls) {
        const OptionColor which = controls.Which;
        connect(findChild<QPushButton*>(QLatin1String(controls.Button)), &QPushButton::clicked, this, [this, which] {
            options_.ChooseColor(which);
            ShowColors();
        });
        if (!frmOptions::ResetValue(which))
            continue;
        connect(findChild<QPushButton*>(QLatin1String(controls.Reset)), &QPushButton::clicked, this, [this, which] {
            options_.ResetColor(which);
            ShowColors();
        });
    }
}

void OptionsDialog::ConnectFont()
{
    connect(ui_->cmdFont, &QPushButton::clicked, this, [this] {
        options_.ChooseFont();
        ShowFont();
    });
    connect(ui_->cmdMonospacedFont, &QPushButton::clicked, this, [this] {
        options_.UseFontNamed(MonospacedFontName());
        ShowFont();
    });
    connect(ui_->cmdResetFont, &QPushButton::clicked, this, [this] {
        options_.ResetFont();
        ShowFont();
    });
}

void OptionsDialog::ShowColors()
{
    for (const ColorControls& controls : kColorControls) {
        auto* button = findChild<QPushButton*>(QLatin1String(controls.Button));
        const QColor color = ColorToQt(options_.Shown(controls.Which), palette());
        button->setIcon(Swatch(color, button->iconSize(), palette().color(QPalette::WindowText)));
        button->setToolTip(color.name());
    }
    ShowSample();
}

void OptionsDialog::ShowFont()
{
    ui_->lblFont->setText(Words(options_.Font()));
    ShowSample();
}

// The preview paints alerts in a color of their own, whatever is chosen here.
Color OptionsDialog::SampleColor(OptionColor which, LineClass line) const
{
    return line == LineClass::Alert ? LookOf(line, {}).ForeColor : options_.Shown(which);
}

void OptionsDialog::ShowSample()
{
    QPalette ground; // the rest stays that of the application
    ground.setColor(QPalette::Base, ColorToQt(options_.Shown(OptionColor::Background), palette()));
    ui_->lstSample->setPalette(ground);
    ui_->lstSample->setFont(FontToQt(options_.Font()));
    ui_->lstSample->clear();
    for (const ColorControls& controls : kColorControls) {
        if (controls.Which == OptionColor::Background)
            continue;
        auto* line = new QListWidgetItem(QLatin1String(controls.Sample), ui_->lstSample);
        line->setForeground(ColorToQt(SampleColor(controls.Which, controls.Weight), palette()));
        QFont weighed = FontToQt(options_.Font());
        weighed.setBold(weighed.bold() || LookOf(controls.Weight, {}).Bold);
        line->setFont(weighed);
    }
}

void OptionsDialog::ShowHelpMessages()
{
    ui_->lstHelpMessages->clear();
    for (const HelpMessageRow& row : options_.HelpMessages())
        new QTreeWidgetItem(ui_->lstHelpMessages, {NameToQt(row.About), row.Shown ? u"Yes"_s : u"No"_s});
}

void OptionsDialog::OK()
{
    if (options_.OK())
        accept();
}

} // namespace veldrane
