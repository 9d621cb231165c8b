// "Kombinasyonlar": the factors of every case in every combination, to be changed; kept in NAME.RAP.
#pragma once

#include "ui/raporcu/page.h"

class QTableWidget;

namespace havuz {

class CombinationPage : public Page {
public:
    explicit CombinationPage(QWidget *parent = nullptr);
    void show(const Answer &answer) override;
    // Combinations to calculate with and to keep; empty: the defaults.
    std::function<void(const std::vector<design::DesignCombination> &)> changed;

private:
    void apply();
    void addRow(const design::DesignCombination &c);
    QTableWidget *table_;
};

} // namespace havuz
