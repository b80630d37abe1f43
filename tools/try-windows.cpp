// SPDX-License-Identifier: MIT
// What tools/try-windows runs under Wine: prints a line for each case, and exits with the number of
// cases that failed. The current folder must be empty.
#include "app/Descriptors.h"
#include "server/Sockets.h"

#include <Nim/Base/FileSystem.h>
#include <Nim/Base/FileSystem_p.h>
#include <Nim/Base/Guid.h>
#include <Nim/Base/WholeFile.h>
#include <Nim/Base/WipedMemory.h>

#include <io.h>
#include <sys/stat.h>
#include <sys/utime.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <thread>

using namespace Nim::Base;
using namespace Nim::Base::FileSystem;

// The real one is Qt's; the names of temporary files need one that is new each time.
std::string GuidUtil::CreateGuid()
{
    static int made = 0;
    return "guid-" + std::to_string(++made);
}

namespace {

constexpr std::int64_t kLongBytes = 9 * 1000 * 1000; // several steps of a copy
constexpr std::time_t kLongAgo_s = 1'000'000'000;

int failed = 0;

void Expect(const char *what, bool is_met)
{
    std::printf("%s  %s\n", is_met ? "ok  " : "FAIL", what);
    failed += is_met ? 0 : 1;
}

void Put(const char *path, const std::string &text)
{
    std::ofstream(path, std::ios::binary) << text;
}

std::string Text(const std::string &path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

bool IsMissing(const char *path)
{
    return FileExists(path) == -1;
}

void TryRenaming()
{
    Put("one", "one");
    Put("two", "two");
    Expect("a rename without replacing refuses a name that is taken",
           !RenameWithoutReplacing("one", "two") && Text("one") == "one" && Text("two") == "two");
    Expect("a rename without replacing gives a free name",
           RenameWithoutReplacing("one", "three") && IsMissing("one") && Text("three") == "one");
    Expect("a rename replaces the target",
           RenameFile("three", "two") == 0 && IsMissing("three") && Text("two") == "one");
    Expect("a rename of a missing file reports ENOENT",
           RenameFile("three", "two") == -1 && errno == ENOENT && Text("two") == "one");
    Expect("a file is deleted", DeleteFileW("two") == 0 && IsMissing("two"));
    Expect("deleting a missing file reports ENOENT", DeleteFileW("two") == -1 && errno == ENOENT);
    Expect("deleting refuses a folder",
           MakeDir("folder/inner") && DeleteFileW("folder") == -1 && FileExists("folder") == 0);
}

void TryCopying()
{
    Put("long", std::string(kLongBytes, 'x'));
    Put("short", "new");
    _utimbuf times{kLongAgo_s, kLongAgo_s};
    _utime("long", &times);

    std::int64_t reported = 0;
    const int result = CopyFileWithProgress("long", "copy", 1,
                                            [&reported](std::int64_t bytes) { reported += bytes; });
    Expect("a copy holds every byte", result == 0 && Text("copy") == Text("long"));
    Expect("the progress of a copy adds up to its size", reported == kLongBytes);
    struct _stat64 status
    {
    };
    Expect("a copy has the time of its source",
           _stat64("copy", &status) == 0 && status.st_mtime == kLongAgo_s);
    Expect("a copy refuses an existing target with EEXIST",
           CopyFileW("short", "copy", 1) == -EEXIST
               && Text("copy").size() == std::size_t(kLongBytes));
    Expect("a copy replaces an existing target",
           CopyFileW("short", "copy", 0) == 0 && Text("copy") == "new");
    Expect("a copy of a missing file leaves the target",
           CopyFileW("missing", "copy", 0) == -ENOENT && Text("copy") == "new");
    Expect("a copy refuses a folder", CopyFileW("folder", "copy", 0) == -EISDIR);
    Expect("a copy into a missing folder reports ENOENT",
           CopyFileW("short", "missing\\copy", 0) == -ENOENT);
    Expect("one file is the same under two spellings",
           IsSameFile("short", ".\\SHORT") && !IsSameFile("short", "long"));
}

void TryCreating()
{
    Expect("a new file is created", CreateLike("made", nullptr) == 0 && FileExists("made") == 0);
    Expect("a name that is taken is refused with EEXIST", CreateLike("made", nullptr) == EEXIST);
    Expect("a file that may be written is known", IsWritable("made"));
    _chmod("made", _S_IREAD);
    Expect("a write-protected file is known", !IsWritable("made"));

    std::FILE *const writer = OpenShared(QString::fromLatin1("short"), "wb");
    std::FILE *const reader = OpenShared(QString::fromLatin1("short"), "rb");
    Expect("a file that is being written can be read", writer && reader);
    std::fclose(reader);
    std::fclose(writer);
}

void TryWholeFiles()
{
    Put("whole", "earlier");
    CWholeFile file;
    Expect("a file is begun beside its target",
           file.Begin("whole") == CWholeFile::Obstacle::None
               && FileExists(file.TemporaryPath().c_str()) == 0);
    const std::string first = file.TemporaryPath();
    Put(first.c_str(), "later");
    Expect("until then the earlier file stays", Text("whole") == "earlier");
    Expect("a whole file replaces the earlier one",
           file.Commit() && Text("whole") == "later" && IsMissing(first.c_str()));
    const bool is_begun = file.Begin("whole") == CWholeFile::Obstacle::None;
    const std::string second = file.TemporaryPath();
    file.Discard();
    Expect("a discarded file is gone",
           is_begun && IsMissing(second.c_str()) && Text("whole") == "later");
    Expect("a missing folder is an obstacle",
           file.Begin("missing\\whole") == CWholeFile::Obstacle::NoFolder);
    Expect("a folder is an obstacle", file.Begin("folder") == CWholeFile::Obstacle::Folder);
    Expect("a write-protected file is an obstacle",
           file.Begin("made") == CWholeFile::Obstacle::WriteProtected);
}

void TryMemory()
{
    void *block = WipedRealloc(nullptr, 4);
    std::memcpy(block, "key", 4);
    block = WipedRealloc(block, 4096);
    Expect("memory that is wiped keeps its bytes when it grows",
           std::strcmp(static_cast<char *>(block), "key") == 0);
    WipedFree(block);
}

void TryDescriptors()
{
    const int nowhere = Client::OpenNowhere();
    Expect("output to nowhere is accepted", nowhere >= 0 && _write(nowhere, "x", 1) == 1);
    const int copy = Client::CopyDescriptor(nowhere);
    _close(nowhere);
    Expect("a copied descriptor outlives the first one", copy >= 0 && _write(copy, "x", 1) == 1);
    _close(copy);
}

// The two ends of a connection over the loopback interface.
struct Connection
{
    SOCKET ends[2] = {INVALID_SOCKET, INVALID_SOCKET};

    bool Open()
    {
        const SOCKET listener = socket(AF_INET, SOCK_STREAM, 0);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        auto *const place = reinterpret_cast<sockaddr *>(&address);
        int size = sizeof address;
        ends[0] = socket(AF_INET, SOCK_STREAM, 0);
        if (bind(listener, place, size) != 0 || listen(listener, 1) != 0
            || getsockname(listener, place, &size) != 0 || connect(ends[0], place, size) != 0)
            return false;
        ends[1] = accept(listener, nullptr, nullptr);
        closesocket(listener);
        return ends[1] != INVALID_SOCKET;
    }
};

void TryCutting()
{
    WSADATA sockets;
    Connection connection;
    Expect("a connection is made", WSAStartup(MAKEWORD(2, 2), &sockets) == 0 && connection.Open());
    int received[2] = {1, 1};
    std::thread waiting[2];
    for (int end = 0; end < 2; ++end) {
        waiting[end] = std::thread([&connection, &received, end] {
            char byte = 0;
            received[end] = recv(connection.ends[end], &byte, 1, 0);
        });
    }
    shutdown(connection.ends[1], SHUT_RDWR);
    for (std::thread &thread : waiting)
        thread.join();
    Expect("a cut ends the reading at both ends", received[0] <= 0 && received[1] <= 0);
    for (const SOCKET end : connection.ends)
        closesocket(end);
    WSACleanup();
}

} // namespace

int main()
{
    TryRenaming();
    TryCopying();
    TryCreating();
    TryWholeFiles();
    TryMemory();
    TryDescriptors();
    TryCutting();
    std::printf(failed == 0 ? "All cases work.\n" : "%d cases failed.\n", failed);
    return failed;
}
