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

public:
    explicit CFilterWidgetEx(QWidget *parent = nullptr);
    ~CFilterWidgetEx() override;

    /// \brief Take types, and the labels before them, from \a model, which stays the host's.
    void SetModel(Ravel::CTreeViewModel *model);
    /// \brief The model has got rows: take the types anew. What the user has unticked stays so.
    void AddTopLevelItems();
    /// \brief Empty both lists of types.
    void ClearAllItems();
    /// \brief The columns of main type and sub type, both 1 at first. Call it before SetModel().
    void SetRelatedIndex(int mainColumn, int subColumn);

    [[nodiscard]] bool IsKeyWord() const;
    /// \brief Ask for a keyword, or for types.
    void SetByKeyWord(bool by_keyword);
    /// \brief The keyword as typed.
    [[nodiscard]] QString GetKeyWord() const;
    /// \brief Ask for \a keyword from now on; nothing is emitted.
    void SetKeyWord(const QString &keyword);

    /// \brief The ticked types; an empty string stands for the cells without text.
    [[nodiscard]] QStringList GetSelectedMainType() const;
    void SetSelectedMainType(const QStringList &types);
    [[nodiscard]] QStringList GetSelectedSubType() const;
    void SetSelectedSubType(const QStringList &types);

    /// \brief The children, for hosts that want more of them.
    [[nodiscard]] QLineEdit *GetKeyWordEdit() const;
    [[nodiscard]] QPushButton *GetMoreBtn() const;
    [[nodiscard]] CComboBoxEx *GetMainTypeComboBox() const;
    [[nodiscard]] CComboBoxEx *GetSubTypeComboBox() const;
    /// \brief Give the keys to the keyword, and turn to asking for one.
    void FocusKeyWord();

Q_SIGNALS:
    /// The user asks for \a keyword, trimmed; empty: for all.
    void SignalFilterWithKeyWord(const QString &keyword);
    /// The user asks for the types that GetSelectedMainType() and GetSelectedSubType() tell.
    void SignalFilterWithKeyWords();
    void SignalMoreBtnClicked();
    /// The user has emptied the filter.
    void SignalClearFilter();

public Q_SLOTS:
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
