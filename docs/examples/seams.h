// SPDX-License-Identifier: MIT
// What the examples of docs/seams.md take from the host.
#pragma once

#include <BusinessCommon/AdaptiveColumnWidthManager.h>
#include <BusinessCommon/TimeZoneManager.h>
#include <CsvParse/CsvParse.h>
#include <Nim/Base/MonitorDriveUtil.h>

#include <syslog.h>

#include <QtCore/QHash>
#include <QtCore/QString>

struct
{
    bool IsCapsLockOn() const;
} keyboard_of_the_kiosk;

struct
{
    void OnChange(Nim::Base::MonitorDriveUtil::DeviceChangeCallBack callback,
                  void *user_data) const;
} video_wall;

struct
{
    bool Exchange(const std::string &url, const std::string &body,
                  ClientComm::CClientRecvInfo &recv) const;
} site_bus;

struct
{
    std::string ReadOrWrite(const BusinessCommon::AdaptiveLayout &layout) const;
} local_settings;

struct
{
    void Show(const QString &text, int kind = 0, int time_s = 0) const;
} bar, tray;

inline QHash<int, QString> texts;
inline std::string token;

struct CGuide
{
    template <int> void Example();
};
