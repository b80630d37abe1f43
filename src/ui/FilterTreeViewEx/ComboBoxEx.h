// SPDX-License-Identifier: MIT
#pragma once

#include <Ravel/LocationComboBox.h>
#include <VantorExport.h>

#include <QtCore/QStringList>

#include <memory>

namespace Ravel {

class CTreeViewModel;

} // namespace Ravel

namespace Vantor {

struct CComboBoxExDataPtr;

/// \brief A combo box whose rows are the texts of one column of a model, each once, with check
/// boxes.
///
/// The field shows "All" while everything is ticked, nothing while nothing is, and otherwise the
/// ticked texts with ";" between them; editTextChanged() carries all of that, although a very long
/// text is shown cut. GUI thread only.
class VANTOR_EXPORT CComboBoxEx : public Ravel::CLocationComboBox
{
    Q_OBJECT
    // Only the host changes these.
    Q_PROPERTY(int mainColumn READ GetMainColumn WRITE SetMainColumn)
    Q_PROPERTY(bool inBackground READ IsInBackground WRITE SetInBackground)

public:
    explicit CComboBoxEx(QWidget *parent = nullptr);
    ~CComboBoxEx() override;

    /// \brief The model to take texts from, at the next UpdateData(); it stays the host's and may
    /// be deleted at any time.
    void SetModel(Ravel::CTreeViewModel *model);
    /// \brief The column whose texts OnFilterByMainType() goes by; -1, the default: the rows' own
    /// texts.
    void SetMainColumn(int column);
    [[nodiscard]] int GetMainColumn() const; ///< See SetMainColumn().
    /// \brief Filter by the ticked texts of \a main, each compared whole, instead of by the text
    /// that OnFilterByMainType() is given; null, the default, goes by that text.
    void SetMainTypes(const CComboBoxEx *main);
    /// \brief Read the texts of long lists on another thread, so that the GUI thread is not held.
    /// The list stays as it was until they are there; the methods that return the ticked texts wait
    /// for them. Off by default.
    void SetInBackground(bool in_background);
    [[nodiscard]] bool IsInBackground() const; ///< See SetInBackground().

    /// \brief The texts that are ticked, also those that OnFilterByMainType() left out; the empty
    /// text of cells is an empty string here and "Blank" for the user.
    [[nodiscard]] QStringList GetSelectedStringItems() const;
    /// \brief Tick \a texts and nothing else; those that the list lacks are ignored.
    void SetSelectedStringItems(const QStringList &texts);
    /// \brief Tick every text, those too that OnFilterByMainType() left out.
    void TickAll();

    /// \brief Make the rows from \a column of the model, in alphabetical order.
    ///
    /// A text that was unticked stays so while the column is the same; new ones are ticked. The
    /// model is read once; later, only the rows that have come or gone since are looked at.
    void UpdateData(int column);
    /// \brief Empty the list.
    void ClearAllItems();
    /// \brief Show the ticked texts in the field.
    void CheckOutSelectedItems();

public Q_SLOTS:
    /// \brief Leave only the rows whose main types \a text names, as the field of another
    /// CComboBoxEx does: "All", nothing, or texts with ";" between them.
    ///
    /// Each text is a regular expression in Qt's default syntax, as it is, and matches anywhere in
    /// a main type. "All" is no exception: it leaves the rows with a main type that holds "All".
    /// See SetMainTypes().
    virtual void OnFilterByMainType(const QString &text);

    void showPopup() override;

protected:
    void changeEvent(QEvent *event) override;

private:
    void OnRowsInserted(const QModelIndex &parent, int first, int last);
    void OnRowsAboutToBeRemoved(const QModelIndex &parent, int first, int last);
    void ForgetTexts();
    void ReadTexts();
    void OnTextsRead();
    void FinishReading();
    void Rebuild(const QStringList &unticked);

    const std::unique_ptr<CComboBoxExDataPtr> d_ptr_;
};

} // namespace Vantor
