// SPDX-License-Identifier: MIT
// What the examples of docs/columns.md take from the host.
#pragma once

#include <Vantor/CAdaptiveColumnWidthWidget>

#include <QtCore/QVector>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QPushButton>

struct Page : QWidget
{
    void LayOutTable();
    void FitColumns(int state);
    QAbstractItemModel *model = nullptr;
    QHeaderView *header = nullptr;
    QWidget *window = nullptr;
    QPushButton *width_button = nullptr;
};

struct CGuide : Page
{
    template <int> void Example();
};
