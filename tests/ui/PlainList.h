// SPDX-License-Identifier: MIT
#pragma once

#include "support/Widgets.h"

#include <Ravel/PageTag.h>

#include <algorithm>
#include <vector>

/// \brief A filtered, sorted and paged list in its plainest form: what a walk compares a view with.
class CPlainList
{
public:
    struct Row
    {
        int id;
        QStringList texts;
        QVariant tag;
    };
    using Rows = std::vector<Row>; // a model's, in its order

    static constexpr int kColumns = 3; // of every model; texts beyond them do not count
    Rows *source = nullptr;            // null: no model
    std::vector<int> all;              // ids of the source, sorted
    std::vector<int> shown;            // those that pass the filter, as the keyword proxy has them
    std::vector<int> page;             // those on the page
    QStringList signals_;
    int rows_per_page = 7;

    void SetSource(Rows *rows)
    {
        const bool had_rows = !shown.empty();
        source = rows;
        page_ = total_ = 1;
        Reset();
        if (source && (had_rows || !shown.empty()))
            Pass();
    }
    void SetSame()
    {
        page_ = total_ = 1;
        ShowPage();
        if (!shown.empty())
            Pass();
    }
    void Reset()
    {
        all = Ids();
        if (column_ >= 0)
            SortAll();
        Reapply();
    }
    void Reapply()
    {
        Refilter();
        ShowPage();
    }
    void Add(const Rows &rows)
    {
        keyword_.clear();
        lists_.clear();
        Refilter();
        Insert(static_cast<int>(source->size()), rows);
        Pass();
    }
    void Insert(int at, const Rows &rows)
    {
        source->insert(source->begin() + at, rows.begin(), rows.end());
        std::vector<int> ids;
        for (const Row &row : rows)
            ids.push_back(row.id);
        if (column_ >= 0) {
            Sort(ids);
            all.insert(all.end(), ids.begin(), ids.end());
        } else {
            all = Ids();
        }
        // Views keep what they show, and get the new rows that pass, which have no page yet.
        const auto is_new = [&ids](int id) { return Holds(ids, id); };
        std::vector<int> passing;
        std::vector<int> paged;
        for (const int id : all) {
            if (is_new(id) ? !Passes(Of(id)) : !Holds(shown, id))
                continue;
            passing.push_back(id);
            if (Holds(page, id) || (is_new(id)))
                paged.push_back(id);
        }
        shown = passing;
        page = paged;
    }
    void Remove(int at, int count)
    {
        for (int row = at; row < at + count; ++row) {
            for (auto *ids : {&all, &shown, &page})
                ids->erase(std::remove(ids->begin(), ids->end(), (*source)[size_t(row)].id),
                           ids->end());
        }
        source->erase(source->begin() + at, source->begin() + at + count);
    }
    void SetKeyWord(const QString &keyword)
    {
        keyword_ = keyword;
        lists_.clear();
        Refilter();
        Pass();
    }
    void SetLists(const std::vector<QStringList> &lists)
    {
        keyword_.clear();
        lists_ = lists;
        Refilter();
        Pass();
    }
    void SetSort(int column, bool is_descending)
    {
        column_ = column;
        is_descending_ = is_descending;
        if (!source)
            return;
        if (column < 0)
            all = Ids();
        else
            SortAll();
        Refilter();
        signals_.append("SignalDataSort()");
        Pass();
    }
    void Resize()
    {
        if (!source)
            return;
        Refilter();
        Pass();
        signals_.append("SignalSizeChanged()");
    }
    void Flip(int to)
    {
        page_ = to;
        signals_.append(QString("SignalUpdateMaxMinPage(%1, %2)")
                            .arg(to != 1 ? "true" : "false", to != total_ ? "true" : "false"));
        ShowPage();
    }
    void Pass()
    {
        if (!source)
            return;
        for (size_t i = 0; i < shown.size(); ++i)
            Of(shown[i]).tag = Ravel::PageTag(static_cast<int>(i) / rows_per_page + 1);
        total_ = shown.empty() ? 1 : (static_cast<int>(shown.size()) - 1) / rows_per_page + 1;
        page_ = 1;
        ShowPage();
        signals_.append(QString("SignalPageReset(%1, %2)").arg(shown.size()).arg(total_));
    }
    void ShowPage()
    {
        page.clear();
        std::copy_if(shown.begin(), shown.end(), std::back_inserter(page), [this](int id) {
            const QVariant &tag = Of(id).tag;
            return !tag.isValid() || tag.toString() == Ravel::PageTag(page_);
        });
    }
    Row &Of(int id)
    {
        return *std::find_if(source->begin(), source->end(),
                             [id](const Row &row) { return row.id == id; });
    }

private:
    static bool Holds(const std::vector<int> &ids, int id)
    {
        return std::count(ids.begin(), ids.end(), id) > 0;
    }
    std::vector<int> Ids() const
    {
        std::vector<int> ids;
        for (size_t i = 0; source && i < source->size(); ++i)
            ids.push_back((*source)[i].id);
        return ids;
    }
    bool Passes(const Row &row) const
    {
        for (size_t i = 0; i < lists_.size(); ++i) {
            const QString text = row.texts.value(static_cast<int>(i));
            if (i == 0 ? text < lists_[i].first() || text > lists_[i].last()
                       : !lists_[i].contains(text))
                return false;
        }
        const QStringList texts = row.texts.mid(0, kColumns);
        return keyword_.isEmpty()
               || std::any_of(texts.begin(), texts.end(),
                              [this](const QString &text) { return text.contains(keyword_); });
    }
    void Refilter()
    {
        shown.clear();
        std::copy_if(all.begin(), all.end(), std::back_inserter(shown),
                     [this](int id) { return Passes(Of(id)); });
    }
    void SortAll() { Sort(all); }
    void Sort(std::vector<int> &ids)
    {
        const auto is_less = [this](int left, int right) {
            const QStringList &a = Of(left).texts;
            const QStringList &b = Of(right).texts;
            if (a.size() <= column_ || b.size() <= column_)
                return a.size() > column_ && b.size() <= column_;
            return a.at(column_).compare(b.at(column_), Qt::CaseInsensitive) < 0;
        };
        std::stable_sort(ids.begin(), ids.end(), [&](int left, int right) {
            return is_descending_ ? is_less(right, left) : is_less(left, right);
        });
    }

    QString keyword_;
    std::vector<QStringList> lists_;
    int column_ = -1;
    bool is_descending_ = false;
    int page_ = 1;
    int total_ = 1;
};
