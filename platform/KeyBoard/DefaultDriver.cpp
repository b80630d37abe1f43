// SPDX-License-Identifier: MIT
#include "KeyBoard/DefaultDriver.h"

#include "KeyBoard/JoystickThread.h"
#include "KeyBoard/SerialKeyboard.h"
#include "Nim/Base/Replaceable.h"

#include <memory>
#include <mutex>

namespace KeyBoard {
namespace {

constexpr quint32 kSerialKeyboard = 1000;
constexpr quint32 kUsbJoystick = 1002;

struct Settings
{
    std::mutex mutex;
    QStringList paths; // under the mutex
    Nim::Base::CReplaceable<void(const KeyBoardPortNews &)> port_listener{
        [](const KeyBoardPortNews &) {}};
};

Settings &TheSettings()
{
    static auto *const settings = new Settings; // a thread may outlast the static objects
    return *settings;
}

void ReportPort(const KeyBoardPortNews &news)
{
    try {
        (*TheSettings().port_listener.Get())(news);
    } catch (...) { // a client's listener may throw; the port is served all the same
    }
}

// Ends the threads when the process exits without a call of Uninit(), because exit() destroys
// the static objects that the threads use. A callback that calls exit() cannot wait for its own
// thread.
struct EndAtExit
{
    ~EndAtExit()
    {
        if (!CDeviceThread::IsCurrent())
            DefaultDriver().Uninit();
    }
};

class CDefaultDriver : public KeyBoardDriver
{
public:
    bool Init(KeyBoardCallBack callback, void *user_data) override
    {
        static const EndAtExit end_at_exit;
        callback_ = callback;
        user_data_ = user_data;
        joysticks_ = std::make_unique<CJoystickThread>(
            [this](quint32 code, quint32 value) { Call(kUsbJoystick, code, value); });
        return true;
    }

    void Uninit() override
    {
        serial_.reset();
        joysticks_.reset();
        callback_ = nullptr;
    }

    bool OpenSerialKeyBoard(quint32 id, const KeyBoardSerialParam &param) override
    {
        if (id != kSerialKeyboard || !callback_)
            return false;
        QStringList paths;
        {
            const std::lock_guard<std::mutex> lock(TheSettings().mutex);
            paths = TheSettings().paths;
        }
        serial_.reset(); // the same port may be meant
        serial_ = std::make_unique<CSerialKeyboard>(
            SerialPath(param.port_name, paths), param,
            [this](const DeviceCode &code) { Call(kSerialKeyboard, code.code, code.value); },
            &ReportPort);
        if (!serial_->IsOpen())
            serial_.reset();
        return serial_ != nullptr;
    }

    bool CloseSerialKeyBoard(quint32 id) override
    {
        if (id != kSerialKeyboard || !serial_)
            return false;
        serial_.reset();
        return true;
    }

private:
    // On the device threads, which take turns.
    void Call(quint32 type, quint32 code, quint32 value)
    {
        const std::lock_guard<std::mutex> lock(call_mutex_);
        callback_(type, code, value, 0, nullptr, nullptr, user_data_);
    }

    std::mutex call_mutex_;
    KeyBoardCallBack callback_ = nullptr; // written while no device thread runs
    void *user_data_ = nullptr;
    std::unique_ptr<CJoystickThread> joysticks_; // between Init() and Uninit()
    std::unique_ptr<CSerialKeyboard> serial_;    // while a port is open
};

} // namespace

KeyBoardDriver &DefaultDriver()
{
    static auto *const driver = new CDefaultDriver; // calls may come after the static objects
    return *driver;
}

void SetSerialPorts(const QStringList &paths)
{
    const std::lock_guard<std::mutex> lock(TheSettings().mutex);
    TheSettings().paths = paths;
}

void SetPortListener(std::function<void(const KeyBoardPortNews &news)> listener)
{
    TheSettings().port_listener.Set(std::move(listener));
}

} // namespace KeyBoard
