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

public:
    explicit CComboBoxEx(QWidget *parent = nullptr);
    ~CComboBoxEx() override;

    /// \brief The model to take texts from, at the next UpdateData(); it stays the host's and may
    /// be deleted at any time.
    void SetModel(Ravel::CTreeViewModel *model);
    /// \brief The column whose texts OnFilterByMainType() goes by; -1, the default: the rows' own
    /// texts.
    void SetMainColumn(int column);
    /// \brief Take what OnFilterByMainType() is given for whole texts instead of regular
    /// expressions. Off by default.
    void SetMainTypesExact(bool exact);

    /// \brief The texts that are ticked, also those that OnFilterByMainType() left out; the empty
    /// text of cells is an empty string here and "Blank" for the user.
    [[nodiscard]] QStringList GetSelectedStringItems() const;
    /// \brief Tick \a texts and nothing else; those that the list lacks are ignored.
    void SetSelectedStringItems(const QStringList &texts);
    void TickAll();

    /// \brief Take the rows anew from \a column of the model, in alphabetical order.
    ///
    /// While everything was ticked everything is again; otherwise the texts that were ticked are.
    void UpdateData(int column);
    /// \brief Empty the list.
    void ClearAllItems();
    /// \brief Bring the field up to what is ticked.
    void CheckOutSelectedItems();

public Q_SLOTS:
    /// \brief Leave only the rows that stand beside the main types \a text, as the field of another
    /// CComboBoxEx names them: "All", nothing, or texts with ";" between them.
    ///
    /// Each text is a regular expression in Qt's default syntax, as it is, and matches anywhere in
    /// a main type; see SetMainTypesExact().
    virtual void OnFilterByMainType(const QString &text);

protected:
    void changeEvent(QEvent *event) override;

private Q_SLOTS:
    void OnModelChanged();

private:
    [[nodiscard]] bool IsUpToDate(int column) const;
    void Rebuild(const QStringList &ticked, bool is_untouched);

    const std::unique_ptr<CComboBoxExDataPtr> d_ptr_;
};

} // namespace Vantor
