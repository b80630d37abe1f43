// SPDX-License-Identifier: MIT
#include "VerifyCodes.h"

#include <QtCore/QRandomGenerator>
#include <QtCore/QUuid>

#include <algorithm>

namespace Server {
namespace {

constexpr qint64 kLife_s = 120;
constexpr size_t kMaximumCodes = 1000; // the oldest ones go
constexpr int kLength = 4;
// Without those that look alike.
constexpr char kLetters[] = "ACDEFGHJKLMNPQRTUVWXYZ234679";

} // namespace

CVerifyCodes::Code CVerifyCodes::Make(const QString &user, qint64 now, const QString &text)
{
    while (!codes_.empty() && (codes_.front().expires <= now || codes_.size() >= kMaximumCodes))
        codes_.pop_front();
    Code code{user, QUuid::createUuid().toString(QUuid::WithoutBraces), text, now + kLife_s};
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
