// SPDX-License-Identifier: MIT
#include "ui/FilterTreeViewEx/ComboBoxEx.h"

#include "common/DisconnectChildren.h"
#include "common/Translate.h"
#include "ui/FilterTreeViewEx/ColumnTexts.h"
#include "ui/FilterTreeViewEx/ComboBoxModel.h"
#include "ui/FilterTreeViewEx/MainTypeMatch.h"

#include <Ravel/PageTag.h>
#include <Ravel/TextReader.h>
#include <Ravel/TreeViewItem.h>
#include <Ravel/TreeViewModel.h>

#include <QtConcurrent/QtConcurrentRun>
#include <QtCore/QEvent>
#include <QtCore/QFutureWatcher>
#include <QtCore/QPointer>
#include <QtCore/QScopedValueRollback>
#include <QtCore/QSignalBlocker>
#include <QtCore/QSortFilterProxyModel>
#include <QtWidgets/QLineEdit>

#include <algorithm>
#include <optional>

namespace Vantor {
namespace {

constexpr int kMostShownLetters = 1000; // a line edit lays out all of its text
constexpr int kFieldLetters = 14;       // its least width
constexpr int kRowsWorthAThread = 20'000;

class CShownRows : public QSortFilterProxyModel
{
public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

    bool filterAcceptsRow(int source_row, const QModelIndex & /*source_parent*/) const override
    {
        return static_cast<const CComboBoxModel *>(sourceModel())->IsShown(source_row);
    }
};

using Counted = std::shared_ptr<CColumnCounter>;

// Null when the texts changed while they were being read.
Counted CountTexts(const Ravel::CTextReader &reader, int column, int main_column)
{
    const auto counter = std::make_shared<CColumnCounter>(column, main_column);
    const bool is_whole =
        reader.Read([&counter](const Ravel::CTextBlock &row) { counter->Add(row); });
    return is_whole ? counter : nullptr;
}

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

    // How much of the model is known.
    enum class Texts {
        Unknown,
        BeingRead, // on another thread
        Counted,   // and the rows are made from them
        Changed,   // counted, but the rows are older
    };

    QPointer<Ravel::CTreeViewModel> ptr_model_;
    CComboBoxModel *const ptr_items_;
    CShownRows *const ptr_shown_;
    Texts texts_ = Texts::Unknown;
    CColumnCounter counter_;
    std::optional<Ravel::CTextReader> reader_; // while the texts are being read
    QFutureWatcher<std::shared_ptr<CColumnCounter>> run_;
    ColumnTexts column_texts_;
    QString str_field_;                     // all of it
    std::optional<QString> str_main_types_; // nothing: not filtered by them
    QPointer<const CComboBoxEx> ptr_main_;
    int column_ = -1;
    int main_column_ = -1;
    bool b_in_background_ = false;
    bool b_rebuilding_ = false;
};

CComboBoxEx::CComboBoxEx(QWidget *parent)
    : CLocationComboBox(parent), d_ptr_(std::make_unique<CComboBoxExDataPtr>(this))
{
    setModel(d_ptr_->ptr_shown_);
    setMinimumContentsLength(kFieldLetters);
    connect(d_ptr_->ptr_items_, &CComboBoxModel::SignalTicksChanged, this,
            &CComboBoxEx::CheckOutSelectedItems);
    connect(&d_ptr_->run_, &QFutureWatcherBase::finished, this, &CComboBoxEx::OnTextsRead);
}

CComboBoxEx::~CComboBoxEx()
{
    DisconnectChildren(this);
}

void CComboBoxEx::SetModel(Ravel::CTreeViewModel *model)
{
    if (d_ptr_->ptr_model_)
        disconnect(d_ptr_->ptr_model_, nullptr, this, nullptr);
    d_ptr_->ptr_model_ = model;
    ForgetTexts();
    if (!model)
        return;
    connect(model, &QAbstractItemModel::rowsInserted, this, &CComboBoxEx::OnRowsInserted);
    connect(model, &QAbstractItemModel::rowsAboutToBeRemoved, this,
            &CComboBoxEx::OnRowsAboutToBeRemoved);
    connect(model, &QAbstractItemModel::modelReset, this, &CComboBoxEx::ForgetTexts);
    connect(model, &QAbstractItemModel::dataChanged, this,
            [this](const QModelIndex &, const QModelIndex &, const QVector<int> &roles) {
                if (roles != QVector<int>{Ravel::kPageTagRole}) // every paging writes those
                    ForgetTexts();
            });
}

void CComboBoxEx::ForgetTexts()
{
    d_ptr_->texts_ = CComboBoxExDataPtr::Texts::Unknown;
}

void CComboBoxEx::OnRowsInserted(const QModelIndex &parent, int first, int last)
{
    using Texts = CComboBoxExDataPtr::Texts;
    const bool is_counted = d_ptr_->texts_ == Texts::Counted || d_ptr_->texts_ == Texts::Changed;
    if (!is_counted || parent.isValid() || last - first >= kRowsWorthAThread) {
        ForgetTexts();
        return;
    }
    for (int row = first; row <= last; ++row)
        d_ptr_->counter_.Add(
            d_ptr_->ptr_model_->ItemFromIndex(d_ptr_->ptr_model_->index(row, 0))->Texts());
    d_ptr_->texts_ = Texts::Changed;
}

void CComboBoxEx::OnRowsAboutToBeRemoved(const QModelIndex &parent, int first, int last)
{
    using Texts = CComboBoxExDataPtr::Texts;
    const bool is_counted = d_ptr_->texts_ == Texts::Counted || d_ptr_->texts_ == Texts::Changed;
    if (!is_counted || parent.isValid() || last - first >= kRowsWorthAThread) {
        ForgetTexts();
        return;
    }
    for (int row = first; row <= last; ++row)
        d_ptr_->counter_.Remove(
            d_ptr_->ptr_model_->ItemFromIndex(d_ptr_->ptr_model_->index(row, 0))->Texts());
    d_ptr_->texts_ = Texts::Changed;
}

void CComboBoxEx::SetMainColumn(int column)
{
    if (column == d_ptr_->main_column_)
        return;
    d_ptr_->main_column_ = column;
    ForgetTexts();
}

void CComboBoxEx::SetMainTypes(const CComboBoxEx *main)
{
    if (d_ptr_->ptr_main_)
        disconnect(d_ptr_->ptr_main_->d_ptr_->ptr_items_, nullptr, this, nullptr);
    d_ptr_->ptr_main_ = main;
    if (!main)
        return;
    // Their field may read the same for other ticks.
    connect(main->d_ptr_->ptr_items_, &CComboBoxModel::SignalTicksChanged, this,
            [this] { OnFilterByMainType(d_ptr_->ptr_main_->d_ptr_->str_field_); });
    OnFilterByMainType(main->d_ptr_->str_field_);
}

void CComboBoxEx::SetInBackground(bool in_background)
{
    d_ptr_->b_in_background_ = in_background;
}

int CComboBoxEx::GetMainColumn() const
{
    return d_ptr_->main_column_;
}

bool CComboBoxEx::IsInBackground() const
{
    return d_ptr_->b_in_background_;
}

QStringList CComboBoxEx::GetSelectedStringItems() const
{
    const_cast<CComboBoxEx *>(this)->FinishReading(); // the rows that are asked about
    return d_ptr_->ptr_items_->TickedTexts();
}

void CComboBoxEx::SetSelectedStringItems(const QStringList &texts)
{
    FinishReading();
    d_ptr_->ptr_items_->SetTickedTexts(texts);
}

void CComboBoxEx::TickAll()
{
    d_ptr_->ptr_items_->TickAll();
}

void CComboBoxEx::UpdateData(int column)
{
    using Texts = CComboBoxExDataPtr::Texts;
    if (!d_ptr_->ptr_model_)
        return;
    const bool is_same = column == d_ptr_->column_;
    if (!is_same) {
        ForgetTexts();
        d_ptr_->column_ = column;
        d_ptr_->ptr_items_->TickAll(); // the unticked texts are of the old column
    }
    if (d_ptr_->texts_ == Texts::Unknown)
        ReadTexts();
    if (d_ptr_->texts_ == Texts::Changed) {
        d_ptr_->texts_ = Texts::Counted;
        d_ptr_->column_texts_ = d_ptr_->counter_.Texts();
        Rebuild(d_ptr_->ptr_items_->UntickedTexts());
    }
}

void CComboBoxEx::ReadTexts()
{
    using Texts = CComboBoxExDataPtr::Texts;
    const int columns = d_ptr_->ptr_model_->columnCount();
    const int column = d_ptr_->column_;
    const int main_column = d_ptr_->main_column_ < columns ? d_ptr_->main_column_ : -1;
    d_ptr_->reader_ = d_ptr_->ptr_model_->TextReader();
    if (column < 0 || column >= columns) {
        d_ptr_->counter_ = CColumnCounter();
        d_ptr_->texts_ = Texts::Changed;
    } else if (d_ptr_->b_in_background_ && d_ptr_->ptr_model_->rowCount() >= kRowsWorthAThread) {
        d_ptr_->texts_ = Texts::BeingRead;
        d_ptr_->run_.setFuture(
            QtConcurrent::run(CountTexts, *d_ptr_->reader_, column, main_column));
    } else {
        d_ptr_->counter_ = std::move(*CountTexts(*d_ptr_->reader_, column, main_column));
        d_ptr_->texts_ = Texts::Changed;
    }
}

void CComboBoxEx::OnTextsRead()
{
    using Texts = CComboBoxExDataPtr::Texts;
    if (d_ptr_->texts_ != Texts::BeingRead)
        return; // other rows came meanwhile
    const Counted counted = d_ptr_->run_.result();
    const bool is_good = counted && d_ptr_->reader_->IsCurrent();
    if (is_good)
        d_ptr_->counter_ = std::move(*counted);
    d_ptr_->texts_ = is_good ? Texts::Changed : Texts::Unknown;
    UpdateData(d_ptr_->column_);
}

// For a question about the rows.
void CComboBoxEx::FinishReading()
{
    if (d_ptr_->texts_ != CComboBoxExDataPtr::Texts::BeingRead)
        return;
    d_ptr_->run_.waitForFinished();
    OnTextsRead();
}

void CComboBoxEx::showPopup()
{
    FinishReading();
    CLocationComboBox::showPopup();
}

void CComboBoxEx::ClearAllItems()
{
    ForgetTexts();
    d_ptr_->column_ = -1;
    d_ptr_->str_main_types_.reset();
    d_ptr_->column_texts_ = {};
    Rebuild({});
}

void CComboBoxEx::Rebuild(const QStringList &unticked)
{
    {
        // A combo box empties its field whenever its model is reset.
        const QSignalBlocker silence(lineEdit());
        const QScopedValueRollback<bool> rebuilding(d_ptr_->b_rebuilding_, true);
        std::vector<QString> texts = d_ptr_->column_texts_.texts;
        d_ptr_->ptr_items_->ConstructModel(texts);
        d_ptr_->ptr_items_->SetUntickedTexts(unticked);
        if (d_ptr_->str_main_types_)
            OnFilterByMainType(*d_ptr_->str_main_types_);
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
    const ColumnTexts &column = d_ptr_->column_texts_;
    // Without a main column a row is filtered by its own text.
    const std::vector<QString> &mains = column.mains.empty() ? column.texts : column.mains;
    const CMainTypeMatch match =
        d_ptr_->ptr_main_ ? CMainTypeMatch(d_ptr_->ptr_main_->d_ptr_->ptr_items_->TickedTexts())
                          : CMainTypeMatch(text);
    std::vector<char> is_named(mains.size());
    std::transform(
        mains.cbegin(), mains.cend(), is_named.begin(), [this, &match](const QString &main) {
            return char(match.Names(d_ptr_->ptr_main_ ? main : CComboBoxModel::ShownText(main)));
        });
    std::vector<char> shown;
    if (column.mains.empty()) {
        shown = is_named;
    } else {
        shown.resize(column.texts.size());
        for (const auto &[own, main] : column.related)
            shown[size_t(own)] = char(shown[size_t(own)] | is_named[size_t(main)]);
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
