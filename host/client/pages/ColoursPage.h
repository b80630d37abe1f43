// SPDX-License-Identifier: MIT
#pragma once

#include "pages/Page.h"

namespace Client {

/// \brief The colours that the theme in force gives to code that paints by hand.
class CColoursPage : public CPage
{
    Q_OBJECT

public:
    explicit CColoursPage(QWidget *parent = nullptr);

    void OnThemeChanged() override;
    /// \brief Names and values of the colours, as they are in the picture.
    [[nodiscard]] QString Text() const;

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace Client
