// SPDX-License-Identifier: MIT
#include "Nim/Base/OS.h"

#include "Nim/Base/OS_p.h"
#include "Nim/Base/Replaceable.h"

namespace Nim::Base::OS {
namespace {

CReplaceable<bool(QString &)> &ListSeparatorSource()
{
    static auto *const source = new CReplaceable<bool(QString &)>(SystemListSeparator);
    return *source;
}

CReplaceable<bool()> &CapsLockSource()
{
    static auto *const source = new CReplaceable<bool()>(SystemCapsLock);
    return *source;
}

} // namespace

bool GetListSeparator(QString &separator)
{
    try {
        QString answer;
        if (!(*ListSeparatorSource().Get())(answer) || answer.isEmpty())
            return false;
        separator = answer;
        return true;
    } catch (...) { // a host's source may throw; callers then use their own default
        return false;
    }
}

QString ListSeparator()
{
    QString separator;
    return GetListSeparator(separator) ? separator : QStringLiteral(",");
}

void SetListSeparatorSource(std::function<bool(QString &)> source)
{
    ListSeparatorSource().Set(std::move(source));
}

bool IsCapsLockOn()
{
    try {
        return (*CapsLockSource().Get())();
    } catch (...) { // as above
        return false;
    }
}

void SetCapsLockSource(std::function<bool()> source)
{
    CapsLockSource().Set(std::move(source));
}

} // namespace Nim::Base::OS
