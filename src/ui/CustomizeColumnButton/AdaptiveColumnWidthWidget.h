// SPDX-License-Identifier: MIT
#pragma once

#include <VantorExport.h>

#include <QtWidgets/QWidget>

#include <memory>

namespace Vantor {

struct CAdaptiveColumnWidthWidgetDataPtr;

/// \brief A small drop-down with two choices for the columns of a table: as narrow as they may be,
/// or as wide as their widest cell.
///
/// It opens inside its parent, normally the host's window. Object names, by which a theme draws the
/// checked look, are listed in docs/styling.md. GUI thread only.
class VANTOR_EXPORT CAdaptiveColumnWidthWidget : public QWidget
{
    Q_OBJECT
    // SignalColumnWidthStateChanged() reports the user's choices alone.
    Q_PROPERTY(int columnWidthState READ GetColumnWidthState WRITE UpdateRaddioButtonState)

public:
    explicit CAdaptiveColumnWidthWidget(QWidget *parent = nullptr);
    ~CAdaptiveColumnWidthWidget() override;

    /// \brief Check the choice of \a state, 0 for the minimum width and others for the maximum.
    /// Emits nothing.
    void UpdateRaddioButtonState(const int &state);
    /// \return 0 for the minimum width, 1 for the maximum.
    [[nodiscard]] int GetColumnWidthState() const;

    /// \brief A press on \a widget, normally the button that opens the drop-down, does not hide it.
    /// Not owned; may be null.
    void SetRelateWidget(QWidget *widget);

    /// \brief Show it below the related widget, inside its parent; where it is if there is no
    /// related widget.
    void ShowAtRelateWidget();

Q_SIGNALS:
    /// The user has chosen: 0 the minimum width, 1 the maximum.
    void SignalColumnWidthStateChanged(const int &state);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private Q_SLOTS:
    void OnMiniAdaptiveToggle(bool checked);
    void OnMaxiAdaptiveToggle(bool checked);

private:
    void Retranslate();

    const std::unique_ptr<CAdaptiveColumnWidthWidgetDataPtr> d_ptr_;
};

} // namespace Vantor
