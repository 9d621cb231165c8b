// The headless window: what can be reached, and the order in which events come.
#include "support.h"
#include "ui/window/headless_window.h"
#include "ui_support.h"

#include <gtest/gtest.h>

namespace havuz {

namespace {

struct EventLog : WindowEvents {
    std::string log;
    static std::string name(Element e) {
        return std::string(e.form) + "." + std::string(e.name) + std::to_string(e.index) + " ";
    }
    void OnClick(Element e) override { log += "click " + name(e); }
    void OnFocus(Element e) override { log += "focus " + name(e); }
    void OnLostFocus(Element e) override { log += "lost " + name(e); }
    bool OnKey(Element e, Key key) override {
        log += "key " + name(e);
        return key == Key::Enter;
    }
    void OnScroll(Element e) override { log += "scroll " + name(e); }
    void OnHover(Element e) override { log += "hover " + name(e); }
    void OnPress(Element e, int, int, double, double) override { log += "press " + name(e); }
    void OnMove(Element, int, int, double, double) override {}
    void OnRelease(Element, int, int, double, double) override {}
    void OnClose(std::string_view form) override { log += "close " + std::string(form) + " "; }
    void OnDeactivate(std::string_view form) override { log += "away " + std::string(form) + " "; }
    void OnTimer() override {}
    void OnWheel(Element, int, double, double) override {}
    void OnPan(Element, double, double) override {}
    void OnResize() override {}
    void OnOpen(const std::string &) override {}
};

// Forms A and B with a text box, a toggle and two pairs of options each.
struct Bench {
    RecordingSurface scr;
    HeadlessWindow window{scr};
    EventLog events;
    Bench() {
        window.SetEvents(&events);
        for (const char *form : {"A", "B"})
            window.MakeForm({form,
                             form,
                             {{.kind = FieldKind::TextBox, .name = "Box", .text = "şu"},
                              {.kind = FieldKind::Toggle, .name = "Toggle"},
                              {.kind = FieldKind::Label, .name = "Hidden", .shown = false},
                              {.kind = FieldKind::Option, .name = "Option", .index = 0, .group = 1, .checked = true},
                              {.kind = FieldKind::Option, .name = "Option", .index = 1, .group = 1},
                              {.kind = FieldKind::Option, .name = "Other", .index = 0, .group = 2, .checked = true},
                              {.kind = FieldKind::ScrollBar, .name = "Bar"}}});
    }
    std::string take() { return std::exchange(events.log, ""); }
};

constexpr Element kBox{"A", "Box", 0}, kToggle{"A", "Toggle", 0}, kOtherBox{"B", "Box", 0};

} // namespace

TEST(HeadlessWindow, OnlyWhatIsInReachTakesInput) {
    Bench b;
    EXPECT_FALSE(b.window.Click(kToggle)); // not shown
    b.window.ShowForm("A", {}, Modality::Modeless, false);
    EXPECT_FALSE(b.window.Click({"A", "Hidden", 0}));
    EXPECT_FALSE(b.window.Type(kToggle, "x"));
    b.window.Enable(kToggle, false);
    EXPECT_FALSE(b.window.Click(kToggle));
    b.window.Enable(kToggle, true);
    b.window.ShowForm("B", {}, Modality::Modal, false);
    EXPECT_FALSE(b.window.Click(kToggle)); // behind a modal form
    EXPECT_TRUE(b.window.Click(kOtherBox));
    b.window.HideForm("B");
    EXPECT_TRUE(b.window.Click(kToggle));
    b.window.EnableForm("A", false);
    EXPECT_FALSE(b.window.CloseForm("A"));
    EXPECT_TRUE(FailureOf([&] { b.window.Show({"A", "Nothing", 0}, true); }).failed);
}

TEST(HeadlessWindow, EventsComeInTheOrderOfAPlatform) {
    Bench b;
    b.window.ShowForm("A", {}, Modality::Modeless, false);
    b.window.ShowForm("B", {}, Modality::Modeless, false);
    EXPECT_EQ(b.take(), "away A ");
    b.window.Type(kBox, "one");
    EXPECT_EQ(b.take(), "away B focus A.Box0 ");
    b.window.Click(kToggle);
    EXPECT_TRUE(b.window.Checked(kToggle));
    EXPECT_EQ(b.take(), "lost A.Box0 focus A.Toggle0 click A.Toggle0 ");
    b.window.SetScroll({"A", "Bar", 0}, 1, 5);
    EXPECT_FALSE(b.window.Scroll({"A", "Bar", 0}, 6));
    EXPECT_TRUE(b.window.Scroll({"A", "Bar", 0}, 5));
    EXPECT_EQ(b.take(), "scroll A.Bar0 ");
}

TEST(HeadlessWindow, OptionsOfAGroupExcludeEachOtherAndTheCaretCountsCharacters) {
    Bench b;
    b.window.ShowForm("A", {}, Modality::Modeless, false);
    b.window.Click({"A", "Option", 1});
    EXPECT_FALSE(b.window.Checked({"A", "Option", 0}));
    EXPECT_TRUE(b.window.Checked({"A", "Other", 0}));
    EXPECT_TRUE(b.window.Checked({"B", "Option", 0}));
    b.window.Type(kBox, "çığ");
    EXPECT_EQ(b.window.SelectionStart(kBox), 3);
    b.window.Press(Key::Left);
    b.window.Press(Key::Enter); // kept from the box
    EXPECT_EQ(b.window.SelectionStart(kBox), 2);
    b.window.Press(Key::Right);
    b.window.Press(Key::Right);
    EXPECT_EQ(b.window.SelectionStart(kBox), 3);
}

} // namespace havuz
