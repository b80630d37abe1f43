// SPDX-License-Identifier: MIT
#include "ui/FilterTreeViewEx/ComboBoxModel.h"

#include "common/Translate.h"

#include <QtCore/QSet>

#include <algorithm>

namespace Vantor {

struct CComboBoxModelDataPtr
{
    std::vector<QString> vec_texts_; // of row 1 and on
    std::vector<char> vec_ticked_;
    std::vector<char> vec_shown_;
    int shown_ = 0;
    int shown_ticked_ = 0;

    QStringList TextsThatAre(char ticked) const
    {
        QStringList texts;
        for (size_t i = 0; i < vec_texts_.size(); ++i) {
            if (vec_ticked_[i] == ticked)
                texts.append(vec_texts_[i]);
        }
        return texts;
    }

    void Count()
    {
        shown_ = 0;
        shown_ticked_ = 0;
        for (size_t i = 0; i < vec_texts_.size(); ++i) {
            shown_ += vec_shown_[i];
            shown_ticked_ += vec_shown_[i] & vec_ticked_[i];
        }
    }
};

namespace {

QString AllText()
{
    return Translate(QStringLiteral("All"), "SimpleMutiPageWidgetUi");
}

QString BlankText()
{
    return Translate(QStringLiteral("Blank"), "SimpleMutiPageWidgetUi");
}

} // namespace

CComboBoxModel::CComboBoxModel(QObject *parent)
    : QAbstractListModel(parent), d_ptr_(std::make_unique<CComboBoxModelDataPtr>())
{}

CComboBoxModel::~CComboBoxModel() = default;

void CComboBoxModel::ConstructModel(std::vector<QString> &texts)
{
    beginResetModel();
    d_ptr_->vec_texts_ = std::exchange(texts, {});
    d_ptr_->vec_ticked_.assign(d_ptr_->vec_texts_.size(), 1);
    d_ptr_->vec_shown_.assign(d_ptr_->vec_texts_.size(), 1);
    d_ptr_->Count();
    endResetModel();
    Q_EMIT SignalTicksChanged();
}

QStringList CComboBoxModel::TickedTexts() const
{
    return d_ptr_->TextsThatAre(1);
}

QStringList CComboBoxModel::UntickedTexts() const
{
    return d_ptr_->TextsThatAre(0);
}

QStringList CComboBoxModel::ShownTickedTexts() const
{
    QStringList texts;
    for (size_t i = 0; i < d_ptr_->vec_texts_.size(); ++i) {
        if (d_ptr_->vec_ticked_[i] && d_ptr_->vec_shown_[i])
            texts.append(ShownText(d_ptr_->vec_texts_[i]));
    }
    return texts;
}

void CComboBoxModel::SetTickedTexts(const QStringList &texts)
{
    QSet<QString> wanted(texts.cbegin(), texts.cend());
    if (wanted.contains(BlankText()))
        wanted.insert(QString());
    for (size_t i = 0; i < d_ptr_->vec_texts_.size(); ++i)
        d_ptr_->vec_ticked_[i] = wanted.contains(d_ptr_->vec_texts_[i]) ? 1 : 0;
    d_ptr_->Count();
    NotifyTicks(0, rowCount() - 1);
}

void CComboBoxModel::SetUntickedTexts(const QStringList &texts)
{
    const QSet<QString> unticked(texts.cbegin(), texts.cend());
    for (size_t i = 0; i < d_ptr_->vec_texts_.size(); ++i)
        d_ptr_->vec_ticked_[i] = unticked.contains(d_ptr_->vec_texts_[i]) ? 0 : 1;
    d_ptr_->Count();
    NotifyTicks(0, rowCount() - 1);
}

void CComboBoxModel::TickAll()
{
    std::fill(d_ptr_->vec_ticked_.begin(), d_ptr_->vec_ticked_.end(), 1);
    d_ptr_->Count();
    NotifyTicks(0, rowCount() - 1);
}

bool CComboBoxModel::AreAllTicked() const
{
    return d_ptr_->shown_ > 0 && d_ptr_->shown_ticked_ == d_ptr_->shown_;
}

bool CComboBoxModel::IsUntouched() const
{
    const auto &ticked = d_ptr_->vec_ticked_;
    return std::find(ticked.cbegin(), ticked.cend(), 0) == ticked.cend();
}

void CComboBoxModel::SetShown(std::vector<char> shown)
{
    shown.resize(d_ptr_->vec_texts_.size(), 0);
    d_ptr_->vec_shown_ = std::move(shown);
    d_ptr_->Count();
    NotifyTicks(0, 0);
}

bool CComboBoxModel::IsShown(int row) const
{
    return row == 0 ? d_ptr_->shown_ > 0 : d_ptr_->vec_shown_[size_t(row) - 1] != 0;
}

QString CComboBoxModel::ShownText(const QString &text)
{
    return text.isEmpty() ? BlankText() : text;
}

void CComboBoxModel::Retranslate()
{
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0), index(rowCount() - 1), {Qt::DisplayRole});
}

int CComboBoxModel::rowCount(const QModelIndex &parent) const
{
    if (parent.isValid() || d_ptr_->vec_texts_.empty())
        return 0;
    return int(d_ptr_->vec_texts_.size()) + 1;
}

QVariant CComboBoxModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid()) // a combo box asks for its current row, but no row is current
        return {};
    const int row = index.row();
    if (role == Qt::CheckStateRole) {
        if (row == 0)
            return StateOfAll();
        return d_ptr_->vec_ticked_[size_t(row) - 1] ? Qt::Checked : Qt::Unchecked;
    }
    if (role == Qt::DisplayRole || role == Qt::EditRole || role == Qt::ToolTipRole)
        return row == 0 ? AllText() : ShownText(d_ptr_->vec_texts_[size_t(row) - 1]);
    return {};
}

bool CComboBoxModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::CheckStateRole || !index.isValid())
        return false;
    const char is_ticked = value.toInt() == Qt::Unchecked ? 0 : 1;
    if (index.row() > 0) {
        d_ptr_->vec_ticked_[size_t(index.row()) - 1] = is_ticked;
        d_ptr_->Count();
        NotifyTicks(index.row(), index.row());
        return true;
    }
    for (size_t i = 0; i < d_ptr_->vec_texts_.size(); ++i) {
        if (d_ptr_->vec_shown_[i])
            d_ptr_->vec_ticked_[i] = is_ticked;
    }
    d_ptr_->Count();
    NotifyTicks(0, rowCount() - 1);
    return true;
}

Qt::ItemFlags CComboBoxModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable
           | Qt::ItemNeverHasChildren;
}

Qt::CheckState CComboBoxModel::StateOfAll() const
{
    if (AreAllTicked())
        return Qt::Checked;
    return d_ptr_->shown_ticked_ == 0 ? Qt::Unchecked : Qt::PartiallyChecked;
}

void CComboBoxModel::NotifyTicks(int first, int last)
{
    if (rowCount() == 0)
        return;
    Q_EMIT dataChanged(index(first), index(last), {Qt::CheckStateRole});
    if (first > 0)
        Q_EMIT dataChanged(index(0), index(0), {Qt::CheckStateRole});
    Q_EMIT SignalTicksChanged();
}

} // namespace Vantor
