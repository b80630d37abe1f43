// SPDX-License-Identifier: MIT
// What the examples of docs/exporting.md take from the host.
#pragma once

#include <Vantor/CExcelControllorWithC>

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtGui/QStandardItemModel>

struct CGuide
{
    template <int> void Example();
    QWidget *window = nullptr;
    QString path;
    QStandardItemModel model;
    std::string png_bytes;
    Vantor::CExcelControllorWithC writer;
};
