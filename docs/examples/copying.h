// SPDX-License-Identifier: MIT
// What the examples of docs/copying.md take from the host.
#pragma once

#include <QtWidgets/QPushButton>

struct CSavePage : QWidget
{
    void OnProgress(float progress);
    void OnFinish(bool is_done, const QStringList &failed);
    QStringList sources, destinations;
    QPushButton *stop_button = nullptr;
};

struct CGuide : CSavePage
{
    template <int> void Example();
};
