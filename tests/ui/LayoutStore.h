// SPDX-License-Identifier: MIT
#pragma once

#include <BusinessCommon/AdaptiveColumnWidthManager.h>

#include <QtCore/QHash>
#include <QtCore/QString>

#include <algorithm>
#include <deque>
#include <functional>

/// \brief A server of layouts in memory that replaces the real one while it lives.
///
/// It answers at once or on demand, and can refuse. A real server cannot be made to do so at a
/// given moment.
class CLayoutStore
{
public:
    CLayoutStore()
    {
        BusinessCommon::CAdaptiveColumnWidthManager::SetHandler(
            [this](const BusinessCommon::AdaptiveLayout &layout, const Answer &answer) {
                waiting_.emplace_back([this, layout, answer] { Serve(layout, answer); });
                if (!is_holding_)
                    AnswerNext();
            });
    }
    CLayoutStore(const CLayoutStore &) = delete;
    CLayoutStore &operator=(const CLayoutStore &) = delete;
    ~CLayoutStore() { BusinessCommon::CAdaptiveColumnWidthManager::SetHandler(nullptr); }

    void Hold() { is_holding_ = true; }
    void AnswerAll()
    {
        is_holding_ = false;
        while (!waiting_.empty())
            AnswerNext();
    }
    /// Answer the last request before the others.
    void AnswerNewest()
    {
        std::rotate(waiting_.begin(), waiting_.end() - 1, waiting_.end());
        AnswerNext();
    }
    void AnswerNext()
    {
        const auto next = waiting_.front();
        waiting_.pop_front();
        next();
    }

    QHash<QString, QByteArray> texts; ///< by user and key
    QString user = QStringLiteral("anna");
    int refusals = 0; ///< how many answers to come are failures
    int reads = 0;
    int writes = 0;
    BusinessCommon::AdaptiveLayout last;

private:
    using Param = BusinessCommon::CAdaptiveColumnWidthObserver::Param;
    using Answer = BusinessCommon::CAdaptiveColumnWidthManager::Answer;

    void Serve(const BusinessCommon::AdaptiveLayout &layout, const Answer &answer)
    {
        const bool is_write = !layout.layout_data.empty();
        const QString place = user + QLatin1Char('/') + QString::fromStdString(layout.key_value);
        ++(is_write ? writes : reads);
        last = layout;
        Param param;
        if (refusals > 0) {
            --refusals;
            param.error_code = {2, 21};
        } else {
            param.current_column_state = 1;
            if (is_write)
                texts[place] = QByteArray::fromStdString(layout.layout_data);
            else
                param.result.receive_data = texts.value(place).toStdString();
        }
        answer(param);
    }

    std::deque<std::function<void()>> waiting_;
    bool is_holding_ = false;
};
