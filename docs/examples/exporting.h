// SPDX-License-Identifier: MIT
// What the examples of docs/exporting.md take from the host.
#pragma once

#include <Vantor/CExcelControllorWithC>

#include <QtCore/QDebug>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtGui/QStandardItemModel>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTableView>

inline QTableView *table = nullptr;
inline QProgressBar *progress_bar = nullptr;
inline QPushButton *cancel_button = nullptr;

struct CGuide : QObject
{
    template <int> void Example();
    QWidget *window = nullptr;
    QString path;
    QStandardItemModel model;
    std::string png_bytes;
    Vantor::CExcelControllorWithC writer;
};
