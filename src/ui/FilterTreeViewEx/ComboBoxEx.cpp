// SPDX-License-Identifier: MIT
#include "ui/FilterTreeViewEx/ComboBoxEx.h"

#include "common/Translate.h"
#include "ui/FilterTreeViewEx/ColumnTexts.h"
#include "ui/FilterTreeViewEx/ComboBoxModel.h"
#include "ui/FilterTreeViewEx/MainTypeMatch.h"

#include <Ravel/PageTag.h>
#include <Ravel/TreeViewModel.h>

#include <QtCore/QEvent>
#include <QtCore/QPointer>
#include <QtCore/QScopedValueRollback>
#include <QtCore/QSignalBlocker>
#include <QtCore/QSortFilterProxyModel>
#include <QtWidgets/QLineEdit>

#include <algorithm>

namespace Vantor {
namespace {

constexpr int kMostShownLetters = 1000; // a line edit lays out all of its text
constexpr int kFieldLetters = 14;       // its least width

class CShownRows : public QSortFilterProxyModel
{
public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

    bool filterAcceptsRow(int source_row, const QModelIndex & /*source_parent*/) const override
    {
        return static_cast<const CComboBoxModel *>(sourceModel())->IsShown(source_row);
    }
};

QString AllText()
{
    return Translate(QStringLiteral("All"), "SimpleMutiPageWidgetUi");
}

} // namespace

struct CComboBoxExDataPtr
{
    explicit CComboBoxExDataPtr(QObject *parent)
        : ptr_items_(new CComboBoxModel(parent)), ptr_shown_(new CShownRows(parent))
    {
        ptr_shown_->setDynamicSortFilter(false);
        ptr_shown_->setSourceModel(ptr_items_);
    }

    QPointer<Ravel::CTreeViewModel> ptr_model_;
    CComboBoxModel *const ptr_items_;
    CShownRows *const ptr_shown_;
    ColumnTexts column_texts_;
    QString str_field_; // all of it
    QString str_main_types_;
    bool b_by_main_types_ = false;
    int column_ = -1;
    int main_column_ = -1;
    bool b_exact_ = false;
    bool b_rebuilding_ = false;
    bool b_stale_ = true; // the model has changed since its texts were taken
};

CComboBoxEx::CComboBoxEx(QWidget *parent)
    : CLocationComboBox(parent), d_ptr_(std::make_unique<CComboBoxExDataPtr>(this))
{
    setModel(d_ptr_->ptr_shown_);
    setMinimumContentsLength(kFieldLetters);
    connect(d_ptr_->ptr_items_, &CComboBoxModel::SignalTicksChanged, this,
            &CComboBoxEx::CheckOutSelectedItems);
}

CComboBoxEx::~CComboBoxEx() = default;

void CComboBoxEx::SetModel(Ravel::CTreeViewModel *model)
{
    if (d_ptr_->ptr_model_)
        disconnect(d_ptr_->ptr_model_, nullptr, this, nullptr);
    d_ptr_->ptr_model_ = model;
    d_ptr_->b_stale_ = true;
    if (!model)
        return;
    connect(model, &QAbstractItemModel::rowsInserted, this, &CComboBoxEx::OnModelChanged);
    connect(model, &QAbstractItemModel::rowsRemoved, this, &CComboBoxEx::OnModelChanged);
    connect(model, &QAbstractItemModel::modelReset, this, &CComboBoxEx::OnModelChanged);
    connect(model, &QAbstractItemModel::dataChanged, this,
            [this](const QModelIndex &, const QModelIndex &, const QVector<int> &roles) {
                if (roles != QVector<int>{Ravel::kPageTagRole}) // every paging writes those
                    OnModelChanged();
            });
}

void CComboBoxEx::OnModelChanged()
{
    d_ptr_->b_stale_ = true;
}

void CComboBoxEx::SetMainColumn(int column)
{
    if (column == d_ptr_->main_column_)
        return;
    d_ptr_->main_column_ = column;
    d_ptr_->b_stale_ = true;
}

void CComboBoxEx::SetMainTypesExact(bool exact)
{
    d_ptr_->b_exact_ = exact;
}

QStringList CComboBoxEx::GetSelectedStringItems() const
{
    return d_ptr_->ptr_items_->TickedTexts();
}

void CComboBoxEx::SetSelectedStringItems(const QStringList &texts)
{
    d_ptr_->ptr_items_->SetTickedTexts(texts);
}

void CComboBoxEx::TickAll()
{
    d_ptr_->ptr_items_->TickAll();
}

bool CComboBoxEx::IsUpToDate(int column) const
{
    return !d_ptr_->b_stale_ && column == d_ptr_->column_;
}

void CComboBoxEx::UpdateData(int column)
{
    if (!d_ptr_->ptr_model_ || IsUpToDate(column))
        return;
    const bool is_untouched = column != d_ptr_->column_ || d_ptr_->ptr_items_->IsUntouched();
    const QStringList ticked = is_untouched ? QStringList() : GetSelectedStringItems();
    d_ptr_->column_ = column;
    d_ptr_->b_stale_ = false;
    d_ptr_->column_texts_ = CollectTexts(*d_ptr_->ptr_model_, column, d_ptr_->main_column_);
    Rebuild(ticked, is_untouched);
}

void CComboBoxEx::ClearAllItems()
{
    d_ptr_->column_ = -1;
    d_ptr_->b_stale_ = true;
    d_ptr_->b_by_main_types_ = false;
    d_ptr_->column_texts_ = {};
    Rebuild({}, true);
}

void CComboBoxEx::Rebuild(const QStringList &ticked, bool is_untouched)
{
    {
        // A combo box empties its field whenever its model is made anew.
        const QSignalBlocker silence(lineEdit());
        const QScopedValueRollback<bool> rebuilding(d_ptr_->b_rebuilding_, true);
        std::vector<QString> texts = d_ptr_->column_texts_.texts;
        d_ptr_->ptr_items_->ConstructModel(texts);
        if (!is_untouched)
            d_ptr_->ptr_items_->SetTickedTexts(ticked);
        if (d_ptr_->b_by_main_types_)
            OnFilterByMainType(d_ptr_->str_main_types_);
    }
    CheckOutSelectedItems();
}

void CComboBoxEx::CheckOutSelectedItems()
{
    if (d_ptr_->b_rebuilding_)
        return;
    const QString field = d_ptr_->ptr_items_->AreAllTicked()
                              ? AllText()
                              : d_ptr_->ptr_items_->ShownTickedTexts().join(QLatin1Char(';'));
    const bool is_new = field != d_ptr_->str_field_;
    d_ptr_->str_field_ = field;
    const QString shown =
        field.size() > kMostShownLetters ? field.left(kMostShownLetters) + QChar(0x2026) : field;
    {
        const QSignalBlocker silence(lineEdit());
        lineEdit()->setText(shown);
        lineEdit()->setCursorPosition(0);
    }
    setToolTip(shown);
    if (is_new)
        Q_EMIT editTextChanged(field);
}

void CComboBoxEx::OnFilterByMainType(const QString &text)
{
    d_ptr_->str_main_types_ = text;
    d_ptr_->b_by_main_types_ = true;
    const ColumnTexts &column = d_ptr_->column_texts_;
    std::vector<char> shown(column.texts.size(), text == AllText() ? 1 : 0);
    if (text != AllText()) {
        const CMainTypeMatch match(text, d_ptr_->b_exact_);
        const auto is_named = [&match](const QString &main) -> char {
            return match.Names(CComboBoxModel::ShownText(main)) ? 1 : 0;
        };
        if (column.mains.empty()) {
            std::transform(column.texts.cbegin(), column.texts.cend(), shown.begin(), is_named);
        } else {
            std::vector<char> mains(column.mains.size());
            std::transform(column.mains.cbegin(), column.mains.cend(), mains.begin(), is_named);
            for (const auto &[own, main] : column.related) {
                if (mains[size_t(main)])
                    shown[size_t(own)] = 1;
            }
        }
    }
    d_ptr_->ptr_items_->SetShown(std::move(shown));
    // Not by a filter of the proxy's own: changing that takes quadratic time (Qt 5.15).
    d_ptr_->ptr_shown_->invalidate();
}

void CComboBoxEx::changeEvent(QEvent *event)
{
    CLocationComboBox::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        d_ptr_->ptr_items_->Retranslate();
        CheckOutSelectedItems();
    }
}

} // namespace Vantor
