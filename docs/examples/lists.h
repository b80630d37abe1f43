// SPDX-License-Identifier: MIT
// What the examples of docs/lists.md take from the host.
#pragma once

#include <Vantor/CFilterTreeViewEx>
#include <Vantor/CMutiPageWidgetEx>

#include <QtWidgets/QHeaderView>
#include <QtWidgets/QWidget>

inline QWidget *window = nullptr;
inline Vantor::CMutiPageWidgetEx *list = nullptr;
inline Vantor::CMutiPageWidget *pages = nullptr;
inline Ravel::CTreeViewModel *model = nullptr;
inline QList<Ravel::CTreeViewItem *> items;
inline int total = 0;
inline int page = 0;
void fetch(int page, int rows);
void fetchSorted(int column, Qt::SortOrder order);

struct CGuide : QObject
{
    template <int> void Example();
};
