// SPDX-License-Identifier: MIT
#pragma once

#include <QtWidgets/QWidget>

namespace Client {

/// \brief A thin bar that shows which share of the list is seen, in the colours of the style
/// manager.
class CShareBar : public QWidget
{
    Q_OBJECT

public:
    explicit CShareBar(QWidget *parent = nullptr);

    /// \param share 0 to 1.
    void SetShare(double share);
    [[nodiscard]] double Share() const { return share_; }
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    double share_ = 1;
};

} // namespace Client
