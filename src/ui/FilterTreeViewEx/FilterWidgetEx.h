// SPDX-License-Identifier: MIT
#pragma once

#include <VantorExport.h>

#include <QtCore/QStringList>
#include <QtWidgets/QFrame>

#include <memory>

QT_BEGIN_NAMESPACE
class QLineEdit;
class QPushButton;
QT_END_NAMESPACE

namespace Ravel {

class CTreeViewModel;

} // namespace Ravel

namespace Vantor {

class CComboBoxEx;
struct CFilterWidgetExDataPtr;

/// \brief A bar in which the user asks for a keyword, or for main types and sub types.
///
/// It filters nothing itself: on SignalFilterWithKeyWord() and SignalFilterWithKeyWords() the host
/// filters its list. The check button decides which of the two is asked for. The sub types follow
/// the main types that are ticked. GUI thread only.
class VANTOR_EXPORT CFilterWidgetEx : public QFrame
{
    Q_OBJECT
    // No signals: what the user enters is reported when it is asked for.
    Q_PROPERTY(QString keyWord READ GetKeyWord WRITE SetKeyWord)
    Q_PROPERTY(bool byKeyWord READ IsKeyWord WRITE SetByKeyWord)

public:
    explicit CFilterWidgetEx(QWidget *parent = nullptr);
    ~CFilterWidgetEx() override;

    /// \brief Take types, and the labels before them, from \a model, which stays the host's.
    void SetModel(Ravel::CTreeViewModel *model);
    /// \brief Read the types again, because the model has new rows. Types that the user has
    /// unticked stay unticked.
    void AddTopLevelItems();
    /// \brief Empty both lists of types.
    void ClearAllItems();
    /// \brief The columns of main type and sub type, both 1 at first. Call it before SetModel().
    void SetRelatedIndex(int mainColumn, int subColumn);

    /// \brief Whether the bar asks for a keyword; otherwise for types.
    [[nodiscard]] bool IsKeyWord() const;
    /// \brief Ask for a keyword, or for types.
    void SetByKeyWord(bool by_keyword);
    /// \brief The keyword as typed.
    [[nodiscard]] QString GetKeyWord() const;
    /// \brief Ask for \a keyword from now on; nothing is emitted.
    void SetKeyWord(const QString &keyword);

    /// \brief The ticked main types; an empty string means the cells without text.
    [[nodiscard]] QStringList GetSelectedMainType() const;
    /// \brief Tick the main types \a types and no others; those that the model lacks are ignored.
    void SetSelectedMainType(const QStringList &types);
    /// \brief The ticked sub types; an empty string means the cells without text.
    [[nodiscard]] QStringList GetSelectedSubType() const;
    /// \brief Tick the sub types \a types and no others; those that the model lacks are ignored.
    void SetSelectedSubType(const QStringList &types);

    /// \brief The entry of the keyword, a child of the bar.
    [[nodiscard]] QLineEdit *GetKeyWordEdit() const;
    /// \brief The button that emits SignalMoreBtnClicked(), a child of the bar.
    [[nodiscard]] QPushButton *GetMoreBtn() const;
    /// \brief The chooser of main types, a child of the bar.
    [[nodiscard]] CComboBoxEx *GetMainTypeComboBox() const;
    /// \brief The chooser of sub types, a child of the bar.
    [[nodiscard]] CComboBoxEx *GetSubTypeComboBox() const;
    /// \brief Give the keys to the keyword, and turn to asking for one.
    void FocusKeyWord();

Q_SIGNALS:
    /// The user asks for \a keyword, trimmed; empty: for all.
    void SignalFilterWithKeyWord(const QString &keyword);
    /// The user asks for the types that GetSelectedMainType() and GetSelectedSubType() return.
    void SignalFilterWithKeyWords();
    /// The user wants the further filters of the host.
    void SignalMoreBtnClicked();
    /// The user has emptied the filter.
    void SignalClearFilter();

public Q_SLOTS:
    /// \brief Emit SignalFilterWithKeyWord() or SignalFilterWithKeyWords(), as IsKeyWord() decides.
    void OnFilterBtnClicked();
    /// \brief Empty the keyword and tick all types. Emits nothing; the clear button does.
    void OnClearFilter();

protected:
    void changeEvent(QEvent *event) override;

private Q_SLOTS:
    void OnClearBtnClicked();
    void OnKeyWordToggled(bool checked);
    void OnHeaderChanged();

private:
    void Arrange();
    void Retranslate();

    const std::unique_ptr<CFilterWidgetExDataPtr> d_ptr_;
};

} // namespace Vantor
