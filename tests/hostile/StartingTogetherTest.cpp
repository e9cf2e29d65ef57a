// Several processes that start at once and have no skin: all of them write the built-in one to the same folder, and read it.
#include <doctest/doctest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <list>
#include <set>

#include "host/BuiltControl.h"
#include "hostile/ChildProcess.h"
#include "hostile/Rounds.h"

namespace vantik {

namespace {

namespace fs = std::filesystem;

// The clients' own folder, which is where they look for their skin.
fs::path ClientFolder() { return fs::path(ProgramFolder()) / L"clients"; }
fs::path Extracted() { return ClientFolder() / L"Temp"; }

void Write(const fs::path& path, const std::string& bytes) { std::ofstream(path, std::ios::binary) << bytes; }

// As when the first processes are half way.
void LeaveHalf() {
    for (const wchar_t* name : {L"delete1.png", L"handno.png", L"bar0.png", L"skin2.bmp"})
        fs::remove(Extracted() / name);
}

void LeaveDamaged() {
    for (const auto& file : fs::directory_iterator(Extracted())) Write(file, "not what it was");
}

void LeaveNothing() { fs::remove_all(Extracted()); }
void LeaveAll() {}

class Clients {
public:
    explicit Clients(int count) {
        LeaveNothing();
        for (int i = 0; i < count; ++i)
            clients_.emplace_back((ClientFolder() / L"skin_client.exe").wstring());
    }
    ~Clients() { LeaveNothing(); }

    std::string LoadInOne(const std::string& skinPath) {
        clients_.front().Send(skinPath);
        return clients_.front().Receive();
    }
    // How many did not answer so.
    int LoadInAll(const std::string& skinPath, const std::string& expected) {
        for (ChildProcess& client : clients_) client.Send(skinPath);
        int failed = 0;
        for (ChildProcess& client : clients_) failed += client.Receive() != expected;
        return failed;
    }

private:
    std::list<ChildProcess> clients_;
};

int FailuresOf(Clients& clients, const std::string& skinPath, const std::string& expected,
               const std::function<void()>& prepare) {
    int failed = 0;
    for (int round = 0, rounds = Rounds(5); round < rounds; ++round) {
        prepare();
        failed += clients.LoadInAll(skinPath, expected);
    }
    return failed;
}

} // namespace

TEST_CASE("processes that start together have their skin, whatever is there of it and whoever is first") {
    for (const int count : {2, 8, 16}) {
        CAPTURE(count);
        Clients clients(count);
        const std::string alone = clients.LoadInOne("Skin");
        CHECK(alone.starts_with("0 "));
        CHECK(FailuresOf(clients, "Skin", alone, LeaveNothing) == 0);
        CHECK(FailuresOf(clients, "Skin", alone, LeaveHalf) == 0);
        CHECK(FailuresOf(clients, "Skin", alone, LeaveDamaged) == 0);
        CHECK(FailuresOf(clients, "Skin", alone, LeaveAll) == 0);
        CHECK(FailuresOf(clients, "Temp", alone, LeaveNothing) == 0);
    }
}

TEST_CASE("what they leave behind is the skin and nothing else") {
    Clients clients(8);
    clients.LoadInAll("Skin", "");
    std::set<std::wstring> names;
    for (const auto& file : fs::directory_iterator(Extracted()))
        names.insert(file.path().filename().wstring());
    CHECK(names == std::set<std::wstring>{L"bar0.png", L"bar1.png", L"delete1.png", L"handno.png",
                                          L"menubar.png", L"skin.ini", L"skin2.bmp", L"sun.png"});
}

} // namespace vantik
