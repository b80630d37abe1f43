// SPDX-License-Identifier: MIT
#include "KeyBoard/DefaultDriver.h"

#include "KeyBoard/Joysticks.h"
#include "KeyBoard/SerialKeyboard.h"

#include <QtCore/QEventLoop>
#include <QtCore/QTimer>

#include <chrono>
#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <thread>

namespace KeyBoard {
namespace {

using namespace std::chrono_literals;

constexpr auto kOrderTime = 10ms;
constexpr quint32 kSerialKeyboard = 1000;
constexpr quint32 kUsbJoystick = 1002;

struct Ports
{
    std::mutex mutex;
    QStringList paths;
};

Ports &ThePorts()
{
    static auto *const ports = new Ports;
    return *ports;
}

// The thread of the devices: an event loop that also takes orders.
class CDeviceThread
{
public:
    CDeviceThread(KeyBoardCallBack callback, void *user_data)
        : thread_([=] { Run(callback, user_data); })
    {}

    ~CDeviceThread()
    {
        Do([](CSerialKeyboard &, QEventLoop &loop) { loop.quit(); });
        thread_.join();
    }

    CDeviceThread(const CDeviceThread &) = delete;
    CDeviceThread &operator=(const CDeviceThread &) = delete;

    // Returns when the thread has done `order`.
    void Do(const std::function<void(CSerialKeyboard &, QEventLoop &)> &order)
    {
        std::promise<void> done;
        {
            const std::lock_guard<std::mutex> lock(mutex_);
            order_ = [&order, &done](CSerialKeyboard &serial, QEventLoop &loop) {
                order(serial, loop);
                done.set_value();
            };
        }
        done.get_future().wait();
    }

private:
    void Run(KeyBoardCallBack callback, void *user_data)
    {
        QEventLoop loop;
        CSerialKeyboard serial([=](const DeviceCode &code) {
            callback(kSerialKeyboard, code.code, code.value, 0, nullptr, nullptr, user_data);
        });
        const CJoysticks joysticks([=](quint32 code, quint32 value) {
            callback(kUsbJoystick, code, value, 0, nullptr, nullptr, user_data);
        });
        QTimer orders;
        QObject::connect(&orders, &QTimer::timeout, &loop, [&] { TakeOrder(serial, loop); });
        orders.start(kOrderTime);
        loop.exec();
    }

    void TakeOrder(CSerialKeyboard &serial, QEventLoop &loop)
    {
        std::function<void(CSerialKeyboard &, QEventLoop &)> order;
        {
            const std::lock_guard<std::mutex> lock(mutex_);
            order.swap(order_);
        }
        if (order)
            order(serial, loop);
    }

    std::mutex mutex_;
    std::function<void(CSerialKeyboard &, QEventLoop &)> order_; // under mutex_
    std::thread thread_;                                         // last: it uses the others
};

class CDefaultDriver : public KeyBoardDriver
{
public:
    bool Init(KeyBoardCallBack callback, void *user_data) override
    {
        thread_ = std::make_unique<CDeviceThread>(callback, user_data);
        thread_->Do([](CSerialKeyboard &, QEventLoop &) {}); // devices are heard from now on
        return true;
    }

    void Uninit() override { thread_.reset(); }

    bool OpenSerialKeyBoard(quint32 id, const KeyBoardSerialParam &param) override
    {
        if (id != kSerialKeyboard)
            return false;
        QStringList paths;
        {
            const std::lock_guard<std::mutex> lock(ThePorts().mutex);
            paths = ThePorts().paths;
        }
        bool is_open = false;
        thread_->Do([&](CSerialKeyboard &serial, QEventLoop &) {
            is_open = serial.Open(SerialPath(param.port_name, paths), param);
        });
        return is_open;
    }

    bool CloseSerialKeyBoard(quint32 id) override
    {
        bool is_closed = false;
        if (id == kSerialKeyboard)
            thread_->Do([&](CSerialKeyboard &serial, QEventLoop &) { is_closed = serial.Close(); });
        return is_closed;
    }

private:
    std::unique_ptr<CDeviceThread> thread_; // between Init() and Uninit()
};

} // namespace

KeyBoardDriver &DefaultDriver()
{
    static auto *const driver = new CDefaultDriver; // a thread may outlast the static objects
    return *driver;
}

void SetSerialPorts(const QStringList &paths)
{
    const std::lock_guard<std::mutex> lock(ThePorts().mutex);
    ThePorts().paths = paths;
}

} // namespace KeyBoard
