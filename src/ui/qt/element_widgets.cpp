#include "ui/qt/element_widgets.h"

#include "ui/kit/but_frm.h"
#include "ui/kit/picture.h"
#include "ui/kit/schk.h"
#include "ui/kit/soption.h"
#include "ui/kit/tones.h"
#include "ui/kit/vek_banner.h"
#include "ui/kit/vek_top_bar.h"
#include "ui/kit/yscroll.h"
#include "ui/qt/pictures.h"
#include "ui/qt/text.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <algorithm>

namespace havuz {

namespace {

using State = WindowState::ElementState;

// The words on an element: its text, where it was given one, else its label.
QString Words(const State &state) { return ToQt(state.text.empty() ? state.label : state.text); }

// Labels report clicks too: the row marker and the rows of the popup are such.
class ReportingLabel : public QLabel {
public:
    ReportingLabel(Element element, QWidget *form, PersonInput &input)
        : QLabel(form), element_(element), input_(input) {
        setTextFormat(Qt::PlainText);
    }

protected:
    void mouseReleaseEvent(QMouseEvent *event) override {
        if (event->button() == Qt::LeftButton && rect().contains(event->pos()))
            input_.clicked(element_);
    }
    void mouseMoveEvent(QMouseEvent *) override { input_.hovered(element_); }

private:
    Element element_;
    PersonInput &input_;
};

// A box that nothing has coloured keeps the platform's own colours.
void Tint(QWidget *widget, QPalette::ColorRole back, QPalette::ColorRole text, const State &state) {
    QPalette palette;
    if (state.colour == kButtonColour && back == QPalette::Base)
        return widget->setPalette(palette);
    const QColor tone = ToneOf(state.colour, palette);
    palette.setColor(back, tone);
    palette.setColor(text, state.textColour == QbColour(0) ? LegibleOn(tone) : ToneOf(state.textColour, palette));
    widget->setPalette(palette);
}

ElementWidget MakeTopBar(QWidget *form) {
    auto *bar = new VekTopBar(form);
    return {bar, nullptr, [bar](const State &state) { bar->put(bag::kCaption, Words(state)); }};
}

// A text that floats over the surface and lets the pointer through.
ElementWidget MakeFloatingLabel(QWidget *form) {
    auto *label = new QLabel(form);
    label->setTextFormat(Qt::PlainText);
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    label->setContentsMargins(4, 1, 4, 1);
    label->setAutoFillBackground(true);
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(0xFF, 0xF7, 0xD6));
    palette.setColor(QPalette::WindowText, QColor(0x20, 0x20, 0x20));
    label->setPalette(palette);
    return {label, nullptr, [label](const State &state) {
                label->setText(Words(state));
                label->adjustSize();
                label->move(qRound(state.left), qRound(state.top));
            }};
}

ElementWidget MakeLabel(const Field &field, Element element, QWidget *form, PersonInput &input) {
    if (field.look == FieldLook::TopBar)
        return MakeTopBar(form);
    if (field.look == FieldLook::Floating)
        return MakeFloatingLabel(form);
    auto *label = new ReportingLabel(element, form, input);
    const bool tinted = field.look == FieldLook::MenuRow;
    label->setMouseTracking(tinted);
    const QString picture = PictureName(field, element, 0);
    const bool painted = !picture.isEmpty();
    if (painted)
        label->setPixmap(PictureOf(picture, PictureSize(field), label->devicePixelRatioF(),
                                   LegibleOn(label->palette().color(QPalette::Window))));
    return {label, nullptr, [label, painted, tinted](const State &state) {
                if (!painted)
                    label->setText(Words(state));
                label->setAutoFillBackground(tinted || state.colour != kButtonColour);
                if (label->autoFillBackground())
                    Tint(label, QPalette::Window, QPalette::WindowText, state);
                if (!tinted)
                    label->adjustSize();
            }};
}

ElementWidget MakeTextBox(const Field &field, Element element, QWidget *form, PersonInput &input) {
    auto *box = new QLineEdit(form);
    auto *beside = new QLabel(ToQt(field.label), form);
    beside->setTextFormat(Qt::PlainText);
    beside->setBuddy(box);
    QObject::connect(box, &QLineEdit::textEdited, box,
                     [element, &input](const QString &text) { input.typed(element, FromQt(text)); });
    return {box, beside, [box](const State &state) {
                if (box->text() != ToQt(state.text))
                    box->setText(ToQt(state.text));
                Tint(box, QPalette::Base, QPalette::Text, state);
            }};
}

// Those of the main window say in their tooltips what they do.
bool SpeaksByTooltip(const Field &field) {
    return field.look == FieldLook::Tool || field.look == FieldLook::Corner || field.look == FieldLook::Overview;
}

void ShowButton(Button &button, const Field &field, Element element, const State &state) {
    const QString picture = PictureName(field, element, state.picture);
    button.put(bag::kPicture, picture);
    button.put(bag::kSize, PictureSize(field));
    button.put(bag::kValue, state.checked);
    button.put(bag::kBack, state.colour == kButtonColour ? QVariant() : ToneOf(state.colour, button.palette()));
    if (SpeaksByTooltip(field) && !picture.isEmpty())
        button.setToolTip(Words(state));
    else if (!button.get(bag::kBare).toBool())
        button.put(bag::kCaption, Words(state));
    if (state.look == FieldLook::Tool && picture.isEmpty())
        button.setToolTip(ToQt(state.label));
}

ElementWidget Reporting(Button *button, const Field &field, Element element, PersonInput &input) {
    QObject::connect(button, &QAbstractButton::clicked, button, [element, &input] { input.clicked(element); });
    return {button, nullptr,
            [button, field, element](const State &state) { ShowButton(*button, field, element, state); }};
}

ElementWidget MakeCombo(QWidget *form, QLabel *beside, Element element, PersonInput &input) {
    auto *list = new QComboBox(form);
    QObject::connect(list, &QComboBox::activated, list, [element, &input](int item) { input.chosen(element, item); });
    return {list, beside, [list](const State &state) {
                const QSignalBlocker silent(list);
                QStringList items;
                for (const std::string &item : state.items)
                    items.append(ToQt(item));
                list->clear();
                list->addItems(items);
                list->setCurrentIndex(state.item);
            }};
}

// Pixels: a list of files and one whose lines say more; frame and scroll bar.
constexpr int kNarrowList = 190, kWideList = 680, kBesideItems = 24;

// A list that does not take the second click of two quick ones for another choice: the first has filled it anew.
class PlainList : public QListWidget {
public:
    using QListWidget::QListWidget;

protected:
    void mouseDoubleClickEvent(QMouseEvent *event) override {
        if (chosenByClick)
            event->accept();
        else
            QListWidget::mouseDoubleClickEvent(event);
    }
    void mouseReleaseEvent(QMouseEvent *event) override {
        const bool second = chosenByClick && !pressed_;
        pressed_ = false;
        if (!second)
            QListWidget::mouseReleaseEvent(event);
    }
    void mousePressEvent(QMouseEvent *event) override {
        pressed_ = true;
        QListWidget::mousePressEvent(event);
    }

public:
    bool chosenByClick = false;

private:
    bool pressed_ = false;
};

ElementWidget MakePlainList(const Field &field, QWidget *form, QLabel *beside, Element element, PersonInput &input) {
    auto *list = new PlainList(form);
    const bool folders = field.look == FieldLook::Folders;
    list->chosenByClick = folders;
    list->setMinimumSize(kNarrowList, 220);
    QObject::connect(list, &QListWidget::itemClicked, list,
                     [element, list, &input](QListWidgetItem *item) { input.chosen(element, list->row(item)); });
    if (folders) // Enter; a double click has chosen already
        QObject::connect(list, &QListWidget::itemActivated, list,
                         [element, list, &input](QListWidgetItem *item) { input.chosen(element, list->row(item)); });
    else
        QObject::connect(list, &QListWidget::itemActivated, list,
                         [element, list, &input](QListWidgetItem *item) { input.confirmed(element, list->row(item)); });
    if (!folders)
        QObject::connect(list, &QListWidget::currentRowChanged, list, [element, list, &input](int row) {
            if (row >= 0 && list->hasFocus())
                input.chosen(element, row);
        });
    return {list, beside, [list, folders](const State &state) {
                const QSignalBlocker silent(list);
                QStringList items;
                for (const std::string &item : state.items)
                    items.append(ToQt(item));
                QStringList shown;
                for (int i = 0; i < list->count(); ++i)
                    shown.append(list->item(i)->text());
                if (items != shown) {
                    list->clear();
                    list->addItems(items);
                    if (!folders)
                        list->setMinimumWidth(
                            std::clamp(list->sizeHintForColumn(0) + kBesideItems, list->minimumWidth(), kWideList));
                }
                list->setCurrentRow(state.item);
            }};
}

// Directories and files are plain lists, all others drop down.
ElementWidget MakeList(const Field &field, Element element, QWidget *form, PersonInput &input) {
    auto *beside = new QLabel(ToQt(field.label), form);
    beside->setTextFormat(Qt::PlainText);
    if (field.look == FieldLook::Open || field.look == FieldLook::Folders)
        return MakePlainList(field, form, beside, element, input);
    return MakeCombo(form, beside, element, input);
}

ElementWidget MakeScrollBar(Element element, QWidget *form, PersonInput &input) {
    auto *bar = new Yscroll(form);
    bar->moved = [element, &input](int value) { input.scrolled(element, value); };
    return {bar, nullptr, [bar](const State &state) {
                bar->put(bag::kMost, state.maximum);
                bar->put(bag::kValue, state.value);
            }};
}

// The main window's frames are panels of buttons, those of dialogs are headings.
ElementWidget MakeFrame(const Field &field, Element element, QWidget *form) {
    if (field.look == FieldLook::ToolPanel)
        return {new ButFrm(form), nullptr, [](const State &) {}};
    auto *banner = new VEKbanner(form);
    banner->put(bag::kCaption, ToQt(field.label));
    const QString picture = PictureName(field, element, 0);
    if (!picture.isEmpty()) {
        banner->put(bag::kPicture, picture);
        banner->put(bag::kSize, PictureSize(field));
    }
    return {banner, nullptr, [](const State &) {}};
}

} // namespace

ElementWidget MakeWidget(const Field &field, Element element, QWidget *form, PersonInput &input) {
    switch (field.kind) {
    case FieldKind::Label:
        return MakeLabel(field, element, form, input);
    case FieldKind::TextBox:
        return MakeTextBox(field, element, form, input);
    case FieldKind::Button:
        return Reporting(new Button(form), field, element, input);
    case FieldKind::Toggle:
        return Reporting(new Schk(Schk::Look::Toggle, form), field, element, input);
    case FieldKind::CheckBox:
        return Reporting(new Schk(Schk::Look::Box, form), field, element, input);
    case FieldKind::Option:
        return Reporting(new Soption(field.look == FieldLook::Tab ? Soption::Look::Tab : Soption::Look::Radio, form),
                         field, element, input);
    case FieldKind::List:
        return MakeList(field, element, form, input);
    case FieldKind::ScrollBar:
        return MakeScrollBar(element, form, input);
    case FieldKind::Frame:
        return MakeFrame(field, element, form);
    case FieldKind::Picture:
    case FieldKind::Line:
        break;
    }
    return {};
}

} // namespace havuz
