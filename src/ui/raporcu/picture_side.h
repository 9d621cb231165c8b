// The lists, marks and boxes at the side of a result picture, and the words of the probe under them.
#pragma once

#include <QWidget>
#include <functional>
#include <optional>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;

namespace havuz {

class PictureSide : public QWidget {
public:
    explicit PictureSide(QWidget *parent = nullptr);

    std::function<void()> resultChanged, lookChanged, styleChanged, saveAsked;
    std::function<void(bool on)> lineToggled;

    // The range that is entered, where it is fixed and a range.
    std::optional<std::pair<double, double>> range() const;
    // Times the displacements: 0 where the shape is not deformed, none where the usual factor is meant.
    std::optional<double> deformation() const;
    void enableBoxes(); // those that have a meaning now

    QComboBox *quantity, *result, *look, *scale;
    QLineEdit *low, *high, *factor;
    QCheckBox *smooth, *lines, *marks, *faults, *deformed, *line;
    QLabel *probe;

private:
    QComboBox *newList(const char *label, const char *name);
    QCheckBox *newMark(const char *label, const char *name, bool on);
    QLineEdit *newBox(const char *label, const char *name);
    void connectAll();
    QFormLayout *form_;
};

} // namespace havuz
