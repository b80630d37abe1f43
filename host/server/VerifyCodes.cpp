// SPDX-License-Identifier: MIT
#include "VerifyCodes.h"

#include <QtCore/QRandomGenerator>
#include <QtCore/QUuid>

#include <algorithm>
#include <iterator>

namespace Server {
namespace {

constexpr qint64 kLife_s = 120;
constexpr int kMaximumOfUser = 3; // at one address
constexpr int kMaximumOfAddress = 100;
constexpr size_t kMaximumCodes = 10'000;
constexpr int kLength = 4;
// Without those that look alike.
constexpr char kLetters[] = "ACDEFGHJKLMNPQRTUVWXYZ234679";

} // namespace

void CVerifyCodes::DropBeyond(int count, const std::function<bool(const Code &)> &is_alike)
{
    auto left = std::count_if(codes_.begin(), codes_.end(), is_alike);
    for (auto code = codes_.begin(); code != codes_.end() && left > count;) {
        const bool is_oldest = is_alike(*code);
        left -= is_oldest ? 1 : 0;
        code = is_oldest ? codes_.erase(code) : std::next(code);
    }
}

CVerifyCodes::Code CVerifyCodes::Make(const QString &address, const QString &user, qint64 now,
                                      const QString &text)
{
    while (!codes_.empty() && (codes_.front().expires <= now || codes_.size() >= kMaximumCodes))
        codes_.pop_front();
    const auto is_here = [&address](const Code &code) { return code.address == address; };
    DropBeyond(kMaximumOfUser - 1,
               [&](const Code &code) { return is_here(code) && code.user == user; });
    DropBeyond(kMaximumOfAddress - 1, is_here);
    Code code{address, user, QUuid::createUuid().toString(QUuid::WithoutBraces), text,
              now + kLife_s};
    for (int i = 0; text.isEmpty() && i < kLength; ++i) {
        const int letter = QRandomGenerator::system()->bounded(int(sizeof kLetters) - 1);
        code.text += QLatin1Char(kLetters[letter]);
    }
    codes_.push_back(code);
    return code;
}

CVerifyCodes::Outcome CVerifyCodes::Take(const QString &user, const QString &mark,
                                         const QString &text, qint64 now)
{
    const auto found = std::find_if(codes_.begin(), codes_.end(), [&](const Code &code) {
        return code.mark == mark && code.user == user;
    });
    if (found == codes_.end())
        return Outcome::Unknown;
    const Code code = *found;
    codes_.erase(found);
    if (code.expires <= now)
        return Outcome::Unknown;
    return code.text.compare(text, Qt::CaseInsensitive) == 0 ? Outcome::Right : Outcome::Wrong;
}

} // namespace Server
