#include "shell/desktop/qt_messages.h"

#include "generator/generation_settings.h"
#include "shell/desktop/qt_text.h"
#include "shell/desktop/room_for_dialog.h"

#include <QLabel>
#include <QLayout>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>

#include <algorithm>
#include <array>
#include <vector>

namespace veldrane {
namespace {

using namespace Qt::StringLiterals;

constexpr int kWidthOfWords = 500; // pixels; to this width Qt's boxes grow before they break lines

struct AnswerButton
{
    Answer Meaning;
    QMessageBox::StandardButton Button;
    const char* Name;
};

constexpr std::array kButtons{
    AnswerButton{Answer::Ok, QMessageBox::Ok, "cmdOK"},
    AnswerButton{Answer::Cancel, QMessageBox::Cancel, "cmdCancel"},
    AnswerButton{Answer::Yes, QMessageBox::Yes, "cmdYes"},
    AnswerButton{Answer::No, QMessageBox::No, "cmdNo"},
};

const AnswerButton& ButtonOf(Answer answer)
{
    return kButtons.at(static_cast<std::size_t>(answer));
}

// The answer that loses nothing last.
std::vector<Answer> AnswersOf(Buttons buttons)
{
    switch (buttons) {
    case Buttons::OkCancel:
        return {Answer::Ok, Answer::Cancel};
    case Buttons::YesNo:
        return {Answer::Yes, Answer::No};
    case Buttons::YesNoCancel:
        return {Answer::Yes, Answer::No, Answer::Cancel};
    case Buttons::Ok:
        break;
    }
    return {Answer::Ok};
}

QMessageBox::Icon IconOf(MessageIcon icon)
{
    switch (icon) {
    case MessageIcon::Information:
        return QMessageBox::Information;
    case MessageIcon::Question:
        return QMessageBox::Question;
    case MessageIcon::Warning:
        return QMessageBox::Warning;
    case MessageIcon::Critical:
        return QMessageBox::Critical;
    case MessageIcon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

void AddButtons(QMessageBox& box, const Question& question)
{
    const std::vector<Answer> answers = AnswersOf(question.Offered);
    for (const Answer answer : answers) {
        const AnswerButton& row = ButtonOf(answer);
        box.addButton(row.Button)->setObjectName(QLatin1StringView(row.Name));
    }
    box.setDefaultButton(ButtonOf(question.Default).Button);
    box.setEscapeButton(ButtonOf(answers.back()).Button);
}

QScrollArea* ScrolledWords(const QMessageBox& box)
{
    auto* words = new QLabel(box.text());
    words->setObjectName(u"lblText"_s);
    words->setTextFormat(box.textFormat());
    words->setTextInteractionFlags(box.textInteractionFlags());
    words->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    words->setWordWrap(true);
    auto* area = new QScrollArea;
    area->setObjectName(u"scrText"_s);
    area->setAccessibleName(box.windowTitle());
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setWidget(words);
    area->setMinimumWidth(kWidthOfWords);
    area->setFixedHeight(MostHeightOfWords(box));
    return area;
}

// The box's own label knows no bound: where its text is too tall, another one stands in its place.
void FitWords(QMessageBox& box)
{
    auto* own = box.findChild<QLabel*>(u"qt_msgbox_label"_s);
    own->setWordWrap(true); // the box decides that anew when it is shown
    if (own->heightForWidth(kWidthOfWords) <= MostHeightOfWords(box))
        return;
    own->hide();
    QScrollArea* words = ScrolledWords(box);
    delete box.layout()->replaceWidget(own, words);
    QWidget::setTabOrder(own, words);
}

// Of several lines none is broken where there is room: which of them are a person's choices would be hard to tell. One
// that is very long is broken as ever.
void KeepLinesWhole(QMessageBox& box)
{
    constexpr int kMostCharacters = 100;
    const QStringList lines = box.text().split(u'\n');
    auto* label = box.findChild<QLabel*>(u"qt_msgbox_label"_s);
    if (label == nullptr || lines.size() == 1)
        return;
    const QFontMetrics metrics = label->fontMetrics();
    int longest = 0;
    for (const QString& line : lines)
        longest = std::max(longest, metrics.horizontalAdvance(line + u' ')); // the label needs a little more
    if (longest <=
        std::min(kMostCharacters * metrics.averageCharWidth(), box.screen()->availableSize().width() * 3 / 4))
        label->setMinimumWidth(longest);
}

Answer AnswerOf(int button)
{
    for (const AnswerButton& row : kButtons) {
        if (row.Button == button)
            return row.Meaning;
    }
    return Answer::Cancel;
}

} // namespace

Answer QtMessages::Ask(const Question& question)
{
    const RoomForDialog room;
    QMessageBox box(WindowInFront());
    box.setObjectName(u"msgBox"_s);
    box.setTextFormat(Qt::PlainText);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    box.setWindowTitle(ToQt(question.Title.empty() ? kAppTitle : std::string_view(question.Title)));
    box.setText(ToQt(question.Text));
    box.setIcon(IconOf(question.Icon));
    AddButtons(box, question);
    KeepLinesWhole(box);
    FitWords(box);
    return AnswerOf(box.exec());
}

} // namespace veldrane
