// SPDX-License-Identifier: MIT
#include "pages/CommandText.h"

#include <QtCore/QCoreApplication>

#include <algorithm>
#include <iterator>

namespace Client {
namespace {

enum class Carries {
    kNothing,
    kSpeed,
    kIndex,
};

struct Command
{
    int operation;
    Carries carries;
    const char *words;
};

constexpr Command kCommands[] = {
    {100, Carries::kSpeed, QT_TRANSLATE_NOOP("CommandText", "tilt up")},
    {101, Carries::kSpeed, QT_TRANSLATE_NOOP("CommandText", "tilt down")},
    {102, Carries::kSpeed, QT_TRANSLATE_NOOP("CommandText", "pan left")},
    {103, Carries::kSpeed, QT_TRANSLATE_NOOP("CommandText", "pan right")},
    {106, Carries::kSpeed, QT_TRANSLATE_NOOP("CommandText", "up and left")},
    {107, Carries::kSpeed, QT_TRANSLATE_NOOP("CommandText", "up and right")},
    {108, Carries::kSpeed, QT_TRANSLATE_NOOP("CommandText", "down and left")},
    {109, Carries::kSpeed, QT_TRANSLATE_NOOP("CommandText", "down and right")},
    {104, Carries::kNothing, QT_TRANSLATE_NOOP("CommandText", "zoom in")},
    {105, Carries::kNothing, QT_TRANSLATE_NOOP("CommandText", "zoom out")},
    {112, Carries::kNothing, QT_TRANSLATE_NOOP("CommandText", "focus near")},
    {113, Carries::kNothing, QT_TRANSLATE_NOOP("CommandText", "focus far")},
    {114, Carries::kNothing, QT_TRANSLATE_NOOP("CommandText", "open the iris")},
    {115, Carries::kNothing, QT_TRANSLATE_NOOP("CommandText", "close the iris")},
    {124, Carries::kIndex, QT_TRANSLATE_NOOP("CommandText", "select in the first window")},
    {125, Carries::kIndex, QT_TRANSLATE_NOOP("CommandText", "select in the second window")},
    {200, Carries::kIndex, QT_TRANSLATE_NOOP("CommandText", "call the preset")},
};
constexpr Command kUnknown{0, Carries::kNothing, QT_TRANSLATE_NOOP("CommandText", "special key")};

QString Text(const char *text)
{
    return QCoreApplication::translate("CommandText", text);
}

} // namespace

QString CommandText(int operation, bool is_stop, int speed, int index)
{
    const auto *const found =
        std::find_if(std::begin(kCommands), std::end(kCommands),
                     [operation](const Command &each) { return each.operation == operation; });
    const Command &command = found == std::end(kCommands) ? kUnknown : *found;
    QString words = Text(command.words);
    if (is_stop)
        return Text(QT_TRANSLATE_NOOP("CommandText", "stop: %1")).arg(words);
    switch (command.carries) {
    case Carries::kSpeed:
        return Text(QT_TRANSLATE_NOOP("CommandText", "%1 at speed %2")).arg(words).arg(speed);
    case Carries::kIndex:
        return Text(QT_TRANSLATE_NOOP("CommandText", "%1, number %2")).arg(words).arg(index);
    case Carries::kNothing:
        break;
    }
    return words;
}

} // namespace Client
