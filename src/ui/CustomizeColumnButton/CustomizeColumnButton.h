// SPDX-License-Identifier: MIT
#pragma once

#include "ui/CustomizeColumnButton/ColumnInfo.h"

#include <Ravel/PushButton.h>

#include <QtCore/QList>
#include <QtCore/QStringList>
#include <QtCore/QVector>

#include <memory>
#include <utility>
#include <vector>

namespace Vantor {

struct CCustomizeColumnButtonDataPtr;
struct ColumnAction;

/// \brief The button beside the header of a table with which a user chooses its columns.
///
/// It drops down a CCustomizeColumnWidget and keeps the choice on the server, for the user who is
/// logged in, under a key of the host's module and function. Each change is written at once; there
/// is no copy in the client. A choice that cannot be read is never replaced: until it is read, the
/// list cannot be changed. A host lays its table out whenever SignalGetCurrentCustomizelistShow()
/// is emitted:
/// \code
/// button->InitCustomizeListByModuleNameANdFunction("Alarm", "History", columns, table);
/// connect(button, &CCustomizeColumnButton::SignalGetCurrentCustomizelistShow, this, [=] {
///     QStringList names;
///     QList<int> ids;
///     button->GetCustomizeListCurrentContent(names, ids);
///     ShowColumns(ids);
/// });
/// \endcode
/// The button may be deleted in that slot. GUI thread only.
class VANTOR_EXPORT CCustomizeColumnButton : public Ravel::CPushButton
{
    Q_OBJECT

public:
    explicit CCustomizeColumnButton(QWidget *parent = nullptr);
    ~CCustomizeColumnButton() override;

    /// \brief Take \a columns as the table's defaults and ask the server for what the user chose.
    /// Once the property "MainInitialized" is true it does nothing.
    ///
    /// \param columns in an order that never changes, because the stored list is restored entry
    ///                by entry.
    /// \param relate  a press on it while the drop-down is open only closes that; may be null.
    void InitCustomizeListByModuleNameANdFunction(const QString &module, const QString &function,
                                                  const QVector<CColumnInfo> &columns,
                                                  QWidget *relate);
    /// \brief Let the drop-down go, and answers that are outstanding; it can be initialised again.
    /// Writes that were made are still sent.
    void UnInitCustomizeList();

    /// \brief The names of the shown columns in the order of the table; empty before
    /// the initialisation. The earlier content of \a names is dropped.
    void GetCustomizeListCurrentContent(QStringList &names) const;
    /// \brief The same with the identifiers, place by place.
    void GetCustomizeListCurrentContent(QStringList &names, QList<int> &ids) const;

    /// \brief Close the drop-down, drop answers that are outstanding and ask the server for nothing
    /// any more. The columns stay as they are; a click on the button opens nothing until it is
    /// uninitialised and initialised again.
    void StopWork();
    /// \brief Another user has logged in: go back to the host's columns and read that user's
    /// choice.
    void UpdateAfterSwitchUser();

Q_SIGNALS:
    /// The choice is settled: read, written, or fallen back to the last good one.
    void SignalGetCurrentCustomizelistShow();

protected:
    void changeEvent(QEvent *event) override;

private Q_SLOTS:
    void OnShowCustomizeListWidget();
    void OnCurrentCustomizeListContent();
    void OnColumnWidgetChangedFinish();
    void OnGetLayoutAdaptiveColumnStateSuccess(const QString &layout);
    void OnPostLayoutAdaptiveColumnStateSuccess(const bool &ok);
    void OnGetPostLayoutAdaptiveColumnStateFailed(const int &first, const int &second,
                                                  const int &getOrPost);

private:
    void CreateController();
    void CreateDropDown(const QVector<CColumnInfo> &columns, QWidget *relate);
    void ReleaseController();
    void OnReadAgain();
    [[nodiscard]] bool IsDragging() const;
    void Execute(const std::vector<ColumnAction> &actions);
    void Execute(const ColumnAction &action);
    void Send(const QByteArray &text);
    void UpdateDropDown();
    void ShowError(const std::pair<int, int> &error);
    void Retranslate();

    const std::unique_ptr<CCustomizeColumnButtonDataPtr> d_ptr_;
};

} // namespace Vantor
