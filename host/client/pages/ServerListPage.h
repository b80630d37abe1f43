// SPDX-License-Identifier: MIT
#pragma once

#include "pages/Page.h"
#include "pages/PageSource.h"

QT_BEGIN_NAMESPACE
class QCheckBox;
class QLabel;
class QLineEdit;
QT_END_NAMESPACE

namespace Ravel {

class CTreeViewModel;

} // namespace Ravel

namespace Vantor {

class CMutiPageWidget;

} // namespace Vantor

namespace Client {

/// \brief The management server's incident list: each page is fetched when it is shown.
///
/// With the total known the bar leads to any page; without, from page to page.
class CServerListPage : public CPage
{
    Q_OBJECT

public:
    explicit CServerListPage(QWidget *parent = nullptr);

    [[nodiscard]] bool IsLoading() const override { return is_waiting_; }

protected:
    void changeEvent(QEvent *event) override;

private Q_SLOTS:
    void OnAskCurrent();
    void OnAskFirst();
    void OnSizeChanged();
    void OnTotalKnown(bool known);
    void OnPage(const Client::ServerPage &page);
    void OnNoServer();
    void OnRebuild();

private:
    void Build();
    void Ask(int page);
    void FitColumns();
    void Retranslate();

    Ravel::CTreeViewModel *const model_;
    CPageSource *const source_;
    QLineEdit *const search_;
    QCheckBox *const total_known_;
    QLabel *const state_;
    Vantor::CMutiPageWidget *list_ = nullptr; // made anew when the reading direction turns
    Qt::LayoutDirection built_for_ = Qt::LeftToRight;
    int asked_rows_ = 0; // per page
    bool is_waiting_ = false;
    QStringList titles_;
};

} // namespace Client
