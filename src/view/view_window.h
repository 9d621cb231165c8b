// What the drawings and the picks ask of the main window and the overview window. The base does nothing, for programs
// without a window. Positions are surface pixels, but for the overview's place, which is in twips.
#pragma once

namespace havuz {

constexpr int kLeftButton = 1;
constexpr int kRightButton = 2;
constexpr int kMiddleButton = 4;

// Results that the mesh view can show beside each node: columns 1..5 of the run, Option1 (0..4) of the main window.
constexpr int kResultOptions = 5;

class ViewWindow {
public:
    virtual ~ViewWindow() = default;

    // main window
    virtual void ShowFrame(int /*index*/, bool /*visible*/) {} // Frame
    virtual void ShowViewPicture(int /*gorunusModu*/) {}       // picture of Command (5)
    virtual void EnablePlanTools(bool /*enabled*/) {}          // those that work in plan only
    virtual bool ResultChosen(int /*index*/) { return false; } // Option1
    virtual void TellOlderResults() {}                         // the chosen result is not of this model
    virtual void ShowPol(int /*index*/, double /*x1*/, double /*y1*/, double /*x2*/, double /*y2*/) {
    } // rubber line pol

    // overview window of the dynamic zoom
    virtual void ShowOverview(bool /*visible*/) {}
    virtual void ShowOverviewButton(bool /*visible*/) {} // SCR1
    virtual void CopySurfaceToOverview() {}              // the whole surface at one fifth of its width and height
    virtual double OverviewWidth() { return 1.0; }       // of its picture, pixels
    virtual double OverviewHeight() { return 1.0; }
    virtual double OverviewLeft() { return 0.0; } // twips
    virtual double OverviewTop() { return 0.0; }
    virtual void PlaceOverview(double /*left*/, double /*top*/) {} // twips
    // the rectangle's four lines
    virtual void PlaceOverviewRectangle(double /*left*/, double /*top*/, double /*right*/, double /*bottom*/) {}
};

} // namespace havuz
