// Parts of the window on their own: fine wheels, the scroll bar of a table, tones, buttons, the recent projects.
#include "support.h"
#include "ui/kit/button.h"
#include "ui/kit/tones.h"
#include "ui/kit/yscroll.h"
#include "ui/qt/settings.h"
#include "ui/qt/surface_view.h"

#include <QApplication>
#include <QSettings>
#include <QWheelEvent>
#include <filesystem>
#include <gtest/gtest.h>

namespace havuz {

// A wheel of fine steps adds up to whole ones; a turn back counts from what is left.
TEST(kit, FineWheelsAddUp) {
    SurfaceView view(nullptr);
    std::vector<int> steps;
    view.pointer.wheel = [&](int n, double x, double y) {
        steps.push_back(n);
        EXPECT_EQ(x + y, 30.0);
    };
    for (const int eighths : {50, 50, 50, -90, -120, 15, 240, 110}) {
        QWheelEvent event(QPointF(10, 20), QPointF(10, 20), {}, {0, eighths}, {}, {}, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&view, &event);
    }
    EXPECT_EQ(steps, (std::vector{1, -1, 1, 1})); // 150 leaves 30; -180 leaves -60; 195 leaves 75; 185 leaves 65
}

TEST(kit, AScrollBarReportsOnlyWhatAPersonMoves) {
    Yscroll bar(nullptr);
    std::vector<int> moved;
    bar.moved = [&](int value) { moved.push_back(value); };
    bar.put(bag::kMost, 40);
    bar.put(bag::kValue, 25);
    EXPECT_EQ(bar.value(), 25);
    EXPECT_TRUE(moved.empty());
    bar.triggerAction(QAbstractSlider::SliderPageStepAdd);
    bar.triggerAction(QAbstractSlider::SliderSingleStepSub);
    bar.triggerAction(QAbstractSlider::SliderToMaximum);
    EXPECT_EQ(moved, (std::vector{35, 34, 40}));
    bar.put(bag::kMost, 5);
    EXPECT_EQ(bar.value(), 5);
    EXPECT_EQ(moved.size(), 3U);
}

TEST(kit, TonesAreOfTheDesktopOrAsAskedAndTextIsLegible) {
    QPalette palette;
    palette.setColor(QPalette::Base, QColor(1, 2, 3));
    palette.setColor(QPalette::Button, QColor(4, 5, 6));
    EXPECT_EQ(ToneOf(kWindowColour, palette), QColor(1, 2, 3));
    EXPECT_EQ(ToneOf(kButtonColour, palette), QColor(4, 5, 6));
    EXPECT_EQ(ToneOf(Colour{0x102030}, palette).rgb() & 0xFFFFFFU, 0x102030U);
    for (const auto &[back, dark] :
         {std::pair{Qt::white, true}, {Qt::yellow, true}, {Qt::black, false}, {Qt::blue, false}})
        EXPECT_EQ(qGray(LegibleOn(QColor(back)).rgb()) < 128, dark) << back;
}

TEST(kit, AButtonShowsWhatItsBagSays) {
    Button button(nullptr);
    const int bare = button.sizeHint().width();
    button.put(bag::kCaption, "TAMAM");
    const QSize words = button.sizeHint();
    EXPECT_GT(words.width(), bare + button.fontMetrics().horizontalAdvance("TAMAM"));
    button.put(bag::kPicture, "fit");
    EXPECT_GE(button.sizeHint().width(), words.width() + 28 - 12 + 6);
    button.put(bag::kPicture, "");
    button.resize(80, 30);
    const auto shown = [&] { return button.grab().toImage(); };
    const QImage up = shown();
    button.put(bag::kValue, true);
    EXPECT_NE(shown().pixel(8, 15), up.pixel(8, 15)) << "a button that is down is another tone, not ringed alone";
    button.put(bag::kValue, false);
    EXPECT_EQ(shown(), up);
    button.put(bag::kBack, QColor(Qt::red));
    EXPECT_EQ(QColor(shown().pixel(8, 15)), QColor(Qt::red));
    button.setEnabled(false);
    EXPECT_NE(QColor(shown().pixel(8, 15)), QColor(Qt::red));
}

// Ten at most, the last first, each once; one that is gone is not offered, and comes back with its file.
TEST(kit, RecentProjectsAreTenAndExist) {
    const TemporaryFolder folder;
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, QString::fromStdString(folder.path()));
    const auto file = [&](int i) { return folder.file("P" + std::to_string(i) + ".POL"); };
    for (int i = 1; i <= 12; ++i) {
        WriteBytes(file(i), "x");
        RememberRecentProject(QString::fromStdString(file(i)));
    }
    RememberRecentProject(QString::fromStdString(file(5)));
    QStringList wanted;
    for (const int i : {5, 12, 11, 10, 9, 8, 7, 6, 4, 3})
        wanted.append(QString::fromStdString(file(i)));
    EXPECT_EQ(RecentProjects(), wanted);
    std::filesystem::remove(file(12));
    EXPECT_EQ(RecentProjects().size(), 9);
    WriteBytes(file(12), "x");
    EXPECT_EQ(RecentProjects(), wanted);
}

} // namespace havuz
