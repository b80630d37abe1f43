// SPDX-License-Identifier: MIT
// What the examples of docs/time.md take from the host.
#pragma once

#include <BusinessCommon/ZoneYear.h>
#include <Vantor/CBaseFileProgressBar>

#include <QtCore/QTimeZone>

struct Player : QObject
{
    void PlayFrom(const QDateTime &time);
};

struct CGuide : QObject
{
    template <int> void Example();
    QWidget *parent = nullptr;
    QVector<std::shared_ptr<Vantor::TimeSliderFile>> files, other_camera;
    Player *player = nullptr;
    Vantor::CBaseFileProgressBar *bar = nullptr;
    qint64 position_ms = 0;
};
