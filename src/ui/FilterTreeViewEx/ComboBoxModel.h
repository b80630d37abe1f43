// SPDX-License-Identifier: MIT
#pragma once

#include <VantorExport.h>

#include <QtCore/QAbstractListModel>
#include <QtCore/QStringList>

#include <memory>
#include <vector>

namespace Vantor {

struct CComboBoxModelDataPtr;

/// \brief Texts with a check box each, under one that ticks and unticks them all.
///
/// Row 0 is "All", in the user's language; its box covers the rows that are not left out. An empty
/// text is shown as "Blank". Made for a hundred thousand rows and more. GUI thread only.
class VANTOR_EXPORT CComboBoxModel : public QAbstractListModel
{
    Q_OBJECT

public:
    explicit CComboBoxModel(QObject *parent = nullptr);
    ~CComboBoxModel() override;

    /// \brief Take \a texts, which are then empty, in their order; all of them are ticked, and
    /// each has a row.
    void ConstructModel(std::vector<QString> &texts);

    /// \brief The texts that are ticked, left out or not; an empty text is itself.
    [[nodiscard]] QStringList TickedTexts() const;
    /// \brief The texts that are not ticked, left out or not.
    [[nodiscard]] QStringList UntickedTexts() const;
    /// \brief Tick all rows but those of \a texts.
    void SetUntickedTexts(const QStringList &texts);
    /// \brief Tick the rows of \a texts and no others; "Blank" in the user's language
    /// means the empty text, too.
    void SetTickedTexts(const QStringList &texts);
    /// \brief Tick every row, left out or not.
    void TickAll();
    /// \brief Whether each row that is not left out is ticked; false without such rows.
    [[nodiscard]] bool AreAllTicked() const;
    /// \brief Whether each row is ticked, left out or not; true without rows.
    [[nodiscard]] bool IsUntouched() const;

    /// \brief The texts, as shown, of the rows that are ticked and not left out.
    [[nodiscard]] QStringList ShownTickedTexts() const;

    /// \brief Leave out the texts whose place in \a shown is 0; they keep their ticks. For a proxy
    /// to ask: the rows stay.
    void SetShown(std::vector<char> shown);
    /// \brief Whether SetShown() did not leave out \a row; row 0 is shown while another one is.
    [[nodiscard]] bool IsShown(int row) const;

    /// \brief How \a text is shown.
    [[nodiscard]] static QString ShownText(const QString &text);
    /// \brief Notify the views that the language has changed.
    void Retranslate();

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;

Q_SIGNALS:
    /// A box was ticked or unticked, by the user or the host.
    void SignalTicksChanged();

private:
    void NotifyTicks(int first, int last);
    [[nodiscard]] Qt::CheckState StateOfAll() const;

    const std::unique_ptr<CComboBoxModelDataPtr> d_ptr_;
};

} // namespace Vantor
