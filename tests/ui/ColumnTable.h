// SPDX-License-Identifier: MIT
#pragma once

#include "support/Widgets.h"

#include <Vantor/CCustomizeColumnButton>
#include <Vantor/CCustomizeColumnWidget>
#include <Vantor/CItemDragMovableListView>
#include <Vantor/CListSightCheckModel>

#include <QtCore/QDeadlineTimer>

#include <numeric>

using Columns = QVector<Vantor::CColumnInfo>;

constexpr int kPatience_ms = 5000;
constexpr char kColumnKey[] = "CListModuleFunctionCustomizeList";

// Columns A, B and so on with the ids 10, 11 and so on, all shown, numbered from 1.
inline Columns MakeColumns(int count)
{
    Columns columns;
    for (int i = 0; i < count; ++i) {
        Vantor::CColumnInfo column;
        column.SetVal_column_No(i + 1);
        column.SetVal_column_id(10 + i);
        column.SetVal_column_name(QString(QChar('A' + i)));
        columns.append(column);
    }
    return columns;
}

// What a host reads from the stored text: the shown columns in order.
inline QString Stored(const QByteArray &text, const Columns &defaults)
{
    const QJsonArray items =
        QJsonDocument::fromJson(text).object().value("CustomizeListItems").toArray();
    QMap<int, QString> shown;
    for (int i = 0; i < items.size(); ++i) {
        const QJsonObject item = items.at(i).toObject();
        if (item.value("ColumnChecked").toInt() == 2)
            shown.insert(item.value("ColumnLocation").toInt(), defaults.at(i).GetVal_column_name());
    }
    return std::accumulate(shown.begin(), shown.end(), QString());
}

/// A table with a column button, as a host has it.
class CTable : public QWidget
{
public:
    explicit CTable(const Columns &columns) : button(new Vantor::CCustomizeColumnButton(this))
    {
        resize(800, 600);
        button->setGeometry(700, 10, 30, 30);
        connect(button.data(), &Vantor::CCustomizeColumnButton::SignalGetCurrentCustomizelistShow,
                this, [this] { OnSettled(); });
        button->InitCustomizeListByModuleNameANdFunction("Module", "Function", columns, nullptr);
        connect(DropDown(), &Vantor::CCustomizeColumnWidget::SignalCutomizelistChanged, this,
                [] { ++changes; });
    }

    void Open()
    {
        show();
        QTest::mouseClick(button, Qt::LeftButton);
    }

    /// \brief Wait until the columns have been settled \a count times; QTRY_ macros sleep between
    /// looks.
    [[nodiscard]] bool WaitSettled(int count) const
    {
        const QDeadlineTimer deadline(kPatience_ms);
        while (settled < count && !deadline.hasExpired())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
        return settled == count;
    }

    // What the host shows, what the drop-down would give, and what its rows say.
    [[nodiscard]] QString Given() const
    {
        QStringList names;
        button->GetCustomizeListCurrentContent(names);
        return names.join(QString());
    }

    [[nodiscard]] QString Rows(bool is_checked_only = true) const
    {
        QString names;
        for (int row = 0; row < Model()->rowCount(); ++row) {
            const QModelIndex index = Model()->index(row, 0);
            if (!is_checked_only || index.data(Qt::CheckStateRole).toInt() == Qt::Checked)
                names += index.data().toString();
        }
        return names;
    }

    [[nodiscard]] Vantor::CCustomizeColumnWidget *DropDown() const
    {
        return button->findChild<Vantor::CCustomizeColumnWidget *>();
    }
    [[nodiscard]] Vantor::CItemDragMovableListView *List() const
    {
        return button->findChild<Vantor::CItemDragMovableListView *>();
    }
    [[nodiscard]] QAbstractItemModel *Model() const { return List()->model(); }
    [[nodiscard]] QCheckBox *AllBox() const { return button->findChild<QCheckBox *>(); }
    [[nodiscard]] QPushButton *Reset() const
    {
        return button->findChild<QPushButton *>("ptr_reset_button_");
    }

    [[nodiscard]] QPoint RowCentre(int row) const
    {
        return List()->visualRect(Model()->index(row, 0)).center();
    }
    void ClickRow(int row) const
    {
        QTest::mouseClick(List()->viewport(), Qt::LeftButton, {}, RowCentre(row));
    }
    void DragTo(int from, int to) const
    {
        QTest::mousePress(List()->viewport(), Qt::LeftButton, {}, RowCentre(from));
        MoveMouse(RowCentre(to));
    }
    void Drop() const { QTest::mouseRelease(List()->viewport(), Qt::LeftButton, {}, mouse_); }

    QPointer<Vantor::CCustomizeColumnButton> button;
    QString shown; ///< as of the last signal
    int settled = 0;
    bool is_deleting_button = false;
    inline static int changes = 0; ///< by the user, of all tables: each is written

private:
    void OnSettled()
    {
        shown = Given();
        ++settled;
        if (is_deleting_button)
            delete button;
    }

    // With the button held, unlike QTest::mouseMove().
    void MoveMouse(const QPoint &place) const
    {
        mouse_ = place;
        QMouseEvent move(QEvent::MouseMove, place, List()->viewport()->mapToGlobal(place),
                         Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(List()->viewport(), &move);
    }

    mutable QPoint mouse_;
};
