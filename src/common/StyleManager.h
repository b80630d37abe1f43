// SPDX-License-Identifier: MIT
#pragma once

#include <Nim/Base/Singleton.h>
#include <VantorExport.h>

#include <QtGui/QColor>
#include <QtWidgets/QWidget>

#include <memory>

namespace Vantor {

class CStyleManager;

} // namespace Vantor

extern template class VANTOR_EXPORT Nim::Base::CSingleton<Vantor::CStyleManager>;

namespace Vantor {

struct CStyleManagerDataPtr;

/// \brief The colours of the host's theme, for code that draws by hand.
///
/// The host's application style sheet fills the twelve properties on the (never shown) manager:
/// \code
/// Vantor--CStyleManager { qproperty-BrandColor: #2F6FED; qproperty-BackColor: #FFFFFF; }
/// \endcode
/// A colour that no rule names is invalid. The rules are applied when the manager is created and
/// whenever the host polishes it again; the manager does not watch the style sheet. Reached through
/// Nim::Base::CSingleton<CStyleManager>::Instance(), the first time on the GUI thread: it is a
/// widget. Getters and setters are for the GUI thread too.
class VANTOR_EXPORT CStyleManager : public QWidget, public Nim::Base::CSingleton<CStyleManager>
{
    Q_OBJECT
    // In the order of their property indices, which hosts rely on.
    Q_PROPERTY(QColor NeuColor READ NeuColor WRITE SetNeuColor)
    Q_PROPERTY(QColor NeuColorT2 READ NeuColorT2 WRITE SetNeuColorT2)
    Q_PROPERTY(QColor TextNeuColor READ TextNeuColor WRITE SetTextNeuColor)
    Q_PROPERTY(QColor TextNeuColorT2 READ TextNeuColorT2 WRITE SetTextNeuColorT2)
    Q_PROPERTY(QColor BackColor READ BackColor WRITE SetBackColor)
    Q_PROPERTY(QColor PanelColor READ PanelColor WRITE SetPanelColor)
    Q_PROPERTY(QColor WidgetColor READ WidgetColor WRITE SetWidgetColor)
    Q_PROPERTY(QColor BackColorT2 READ BackColorT2 WRITE SetBackColorT2)
    Q_PROPERTY(QColor PanelColorT2 READ PanelColorT2 WRITE SetPanelColorT2)
    Q_PROPERTY(QColor WidgetColorT2 READ WidgetColorT2 WRITE SetWidgetColorT2)
    Q_PROPERTY(QColor BrandColor READ BrandColor WRITE SetBrandColor)
    Q_PROPERTY(QColor InfoColor READ InfoColor WRITE SetInfoColor)

public:
    /// \brief For Instance(); a second manager would be filled by the theme, but nothing reads it.
    explicit CStyleManager(QWidget *parent = nullptr);
    ~CStyleManager() override;

    [[nodiscard]] QColor NeuColor() const;       ///< Neutral, first tone.
    [[nodiscard]] QColor NeuColorT2() const;     ///< Neutral, second tone.
    [[nodiscard]] QColor TextNeuColor() const;   ///< Neutral text.
    [[nodiscard]] QColor TextNeuColorT2() const; ///< Neutral text, second tone.
    [[nodiscard]] QColor BackColor() const;      ///< Background.
    [[nodiscard]] QColor PanelColor() const;     ///< Panel.
    [[nodiscard]] QColor WidgetColor() const;    ///< Widget face.
    [[nodiscard]] QColor BackColorT2() const;    ///< Background, second tone.
    [[nodiscard]] QColor PanelColorT2() const;   ///< Panel, second tone.
    [[nodiscard]] QColor WidgetColorT2() const;  ///< Widget face, second tone.
    [[nodiscard]] QColor BrandColor() const;     ///< Brand (accent).
    [[nodiscard]] QColor InfoColor() const;      ///< Information.

    /// \brief Store the first neutral tone. Nothing is emitted or repainted.
    void SetNeuColor(const QColor &color);
    /// \brief Store the second neutral tone. Nothing is emitted or repainted.
    void SetNeuColorT2(const QColor &color);
    /// \brief Store the tone of neutral text. Nothing is emitted or repainted.
    void SetTextNeuColor(const QColor &color);
    /// \brief Store the second tone of neutral text. Nothing is emitted or repainted.
    void SetTextNeuColorT2(const QColor &color);
    /// \brief Store the background. Nothing is emitted or repainted.
    void SetBackColor(const QColor &color);
    /// \brief Store the colour of panels. Nothing is emitted or repainted.
    void SetPanelColor(const QColor &color);
    /// \brief Store the face of widgets. Nothing is emitted or repainted.
    void SetWidgetColor(const QColor &color);
    /// \brief Store the second tone of the background. Nothing is emitted or repainted.
    void SetBackColorT2(const QColor &color);
    /// \brief Store the second tone of panels. Nothing is emitted or repainted.
    void SetPanelColorT2(const QColor &color);
    /// \brief Store the second face of widgets. Nothing is emitted or repainted.
    void SetWidgetColorT2(const QColor &color);
    /// \brief Store the brand or accent colour. Nothing is emitted or repainted.
    void SetBrandColor(const QColor &color);
    /// \brief Store the colour of information. Nothing is emitted or repainted.
    void SetInfoColor(const QColor &color);

    /// \brief NeuColor() with its alpha set to \a opacity, 0.0 to 1.0; the stored colour stays as
    /// it is.
    ///
    /// An invalid colour stays invalid. Qt logs a warning for an opacity outside the range and
    /// brings it into it.
    [[nodiscard]] QColor GetNeuColor(float opacity);
    /// \brief NeuColorT2() with \a opacity, as GetNeuColor() does it.
    [[nodiscard]] QColor GetNeuColorT2(float opacity);
    /// \brief TextNeuColor() with \a opacity, as GetNeuColor() does it.
    [[nodiscard]] QColor GetTextNeuColor(float opacity);
    /// \brief TextNeuColorT2() with \a opacity, as GetNeuColor() does it.
    [[nodiscard]] QColor GetTextNeuColorT2(float opacity);

    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    const std::shared_ptr<CStyleManagerDataPtr> d_ptr_;
};

} // namespace Vantor
