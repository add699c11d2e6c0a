#include "support/tds_server.h"

#include "support/tds_catalog.h"
#include "support/tds_requests.h"
#include "support/tds_tokens.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <cstdint>
#include <list>
#include <stdexcept>
#include <string_view>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace veldrane::testing {
namespace {

constexpr std::size_t kHeaderSize = 8;
constexpr std::size_t kPacketSize = 4096;
constexpr std::uint8_t kLast = 0x01;
constexpr std::uint8_t kAnswer = 0x04;

namespace request {
constexpr std::uint8_t kBatch = 0x01;
constexpr std::uint8_t kCall = 0x03;
constexpr std::uint8_t kCancel = 0x06;
constexpr std::uint8_t kLogin = 0x10;
constexpr std::uint8_t kGreeting = 0x12;
} // namespace request

// The server's version, and that it knows no encryption.
constexpr std::string_view kGreeting("\x00\x00\x0B\x00\x06\x01\x00\x11\x00\x01\xFF\x0A\x00\x00\x00\x00\x00\x02", 18);

constexpr const char* kEndlessWord = "endless";
constexpr std::size_t kLongestWords = 500;
const std::vector<TdsColumn> kEndlessRow(5, {.Name = "x", .Type = "sysname"});

// The end of the connection; the thread that serves it ends too.
struct Gone
{};

// A type, whether it is the last of its message, its length, and four bytes of no concern.
std::string Packet(std::string_view body, std::uint8_t status)
{
    const std::size_t size = body.size() + kHeaderSize;
    std::string bytes{static_cast<char>(kAnswer), static_cast<char>(status), static_cast<char>(size / 256),
                      static_cast<char>(size % 256)};
    bytes.append(4, '\0');
    return bytes.append(body);
}

// Messages over a socket, cut into packets.
class Messages
{
  public:
    explicit Messages(int socket) : socket_(socket) {}

    std::uint8_t Receive(std::string& body) const
    {
        std::array<unsigned char, kHeaderSize> header{};
        body.clear();
        do {
            Take(reinterpret_cast<char*>(header.data()), header.size());
            const std::size_t size = header[2] * 256U + header[3];
            std::string packet(size < kHeaderSize ? throw Gone() : size - kHeaderSize, '\0');
            Take(packet.data(), packet.size());
            body += packet;
        } while ((header[1] & kLast) == 0);
        return header[0];
    }

    // The last packet has the status.
    void Send(std::string_view body, std::uint8_t status = kLast) const
    {
        do {
            const std::string_view packet = body.substr(0, kPacketSize - kHeaderSize);
            body.remove_prefix(packet.size());
            SendPacket(packet, body.empty() ? status : 0);
        } while (!body.empty());
    }

    void SendPacket(std::string_view packet, std::uint8_t status) const { SendBytes(Packet(packet, status)); }

    void SendBytes(std::string_view bytes) const
    {
        while (!bytes.empty()) {
            const ssize_t sent = send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
            if (sent <= 0)
                throw Gone();
            bytes.remove_prefix(static_cast<std::size_t>(sent));
        }
    }

  private:
    void Take(char* bytes, std::size_t size) const
    {
        while (size > 0) {
            const ssize_t got = recv(socket_, bytes, size, 0);
            if (got <= 0)
                throw Gone();
            bytes += got;
            size -= static_cast<std::size_t>(got);
        }
    }

    int socket_;
};

bool IsOpening(std::uint8_t type, std::string_view body)
{
    return type == request::kBatch && body.find(ToTdsText("SELECT * FROM ")) != std::string_view::npos;
}

// An opening is a question, too.
bool IsAt(TdsMoment moment, std::uint8_t type, std::string_view body)
{
    switch (moment) {
    case TdsMoment::Greeting:
        return type == request::kGreeting;
    case TdsMoment::Login:
        return type == request::kLogin;
    case TdsMoment::Question:
        return type != request::kGreeting && type != request::kLogin;
    case TdsMoment::Opening:
        return IsOpening(type, body);
    }
    return false;
}

// One caller, from the greeting to the end.
class Caller
{
  public:
    Caller(int socket, const TdsContents& contents, const TdsManners& manners)
        : messages_(socket), contents_(contents), manners_(manners)
    {}

    void Serve()
    {
        for (std::string body;;) {
            const std::uint8_t type = messages_.Receive(body);
            const std::string answer = AnswerTo(type, body);
            if (manners_.Temper == TdsTemper::Willing || !IsAt(manners_.From, type, body))
                messages_.Send(answer);
            else
                Misbehave(answer, body);
        }
    }

  private:
    std::string AnswerTo(std::uint8_t type, const std::string& body)
    {
        if (type == request::kGreeting)
            return std::string(kGreeting);
        if (type == request::kLogin)
            return AnswerToLogin(ReadTdsLogin(body));
        TdsAnswer answer(version_);
        if (type == request::kCall)
            AnswerTdsCall(contents_, ReadTdsCall(body, version_), answer);
        else if (type == request::kBatch)
            AnswerTdsBatch(contents_, ReadTdsBatch(body, version_), answer);
        else if (type == request::kCancel)
            answer.End(0x20);
        return answer.Bytes();
    }

    static TdsFailure LoginFailed(const TdsLogin& login)
    {
        return {18456, "Login failed for user '" + login.User + "'.", 14};
    }

    std::string AnswerToLogin(const TdsLogin& login)
    {
        version_ = login.Version;
        TdsAnswer answer(version_);
        if (login.User != contents_.User || login.Password != contents_.Password)
            answer.Fail(LoginFailed(login));
        else if (!login.Database.empty() && login.Database != contents_.Database) {
            answer.Complain(
                {4060, "Cannot open database \"" + login.Database + "\" requested by the login. The login failed.",
                 11});
            answer.Fail(LoginFailed(login));
        } else
            answer.Welcome(contents_.Database);
        return answer.Bytes();
    }

    void Misbehave(const std::string& answer, std::string& body) const
    {
        switch (manners_.Temper) {
        case TdsTemper::Willing:
            return;
        case TdsTemper::Silent:
            for (;;)
                messages_.Receive(body);
        case TdsTemper::HangsUp:
            throw Gone();
        case TdsTemper::BreaksOff:
            messages_.SendPacket(std::string_view(answer).substr(0, answer.size() / 2), 0);
            throw Gone();
        case TdsTemper::Babbles:
            return messages_.SendBytes("HTTP/1.0 400 Bad Request\r\n\r\n" + std::string(200, '\x7E'));
        case TdsTemper::NeverEnds:
            NeverEnd();
        case TdsTemper::Drips:
            return Drip(answer);
        }
    }

    [[nodiscard]] TdsEndless WithoutEnd() const
    {
        const bool isConnecting = manners_.From == TdsMoment::Greeting || manners_.From == TdsMoment::Login;
        return isConnecting && manners_.Endless == TdsEndless::Rows ? TdsEndless::Changes : manners_.Endless;
    }

    void BeginWithoutEnd(TdsAnswer& answer) const
    {
        if (WithoutEnd() == TdsEndless::Rows)
            answer.Columns(kEndlessRow);
        if (WithoutEnd() == TdsEndless::Value) {
            answer.Columns({{.Name = "x", .Type = "nvarchar(max)"}});
            answer.BeginLongRow();
        }
    }

    void GoOn(TdsAnswer& answer) const
    {
        switch (WithoutEnd()) {
        case TdsEndless::Rows:
            return answer.Row(kEndlessRow, TdsRow(kEndlessRow.size(), kEndlessWord));
        case TdsEndless::Changes:
            return answer.ChangeDatabase(kEndlessWord);
        case TdsEndless::Messages:
            return answer.Complain({.Number = 50000, .Words = kEndlessWord, .Severity = 10});
        case TdsEndless::LongMessages:
            return answer.Complain({.Number = 50000, .Words = std::string(kLongestWords, 'x'), .Severity = 10});
        case TdsEndless::Value:
            return answer.Piece(kEndlessWord);
        }
    }

    // Packets whose end is in the middle of an answer, so that any number of them may follow.
    [[noreturn]] void NeverEnd() const
    {
        TdsAnswer beginning(version_);
        BeginWithoutEnd(beginning);
        TdsAnswer more(version_);
        do {
            GoOn(more);
        } while (manners_.Pause.count() == 0 && more.Bytes().size() < kPacketSize / 2);
        messages_.SendPacket(beginning.Bytes(), 0);
        for (;;) {
            std::this_thread::sleep_for(manners_.Pause);
            messages_.Send(more.Bytes(), 0);
        }
    }

    void Drip(const std::string& answer) const
    {
        for (const char byte : Packet(answer, kLast)) {
            std::this_thread::sleep_for(manners_.Pause);
            messages_.SendBytes({&byte, 1});
        }
    }

    Messages messages_;
    const TdsContents& contents_;
    const TdsManners& manners_;
    std::uint32_t version_ = 0x71000001;
};

} // namespace

// The listening socket and everybody who has called.
class TdsServer::Calls
{
  public:
    Calls(TdsContents contents, TdsManners manners)
        : Contents(std::move(contents)), manners_(manners), socket_(socket(AF_INET, SOCK_STREAM, 0))
    {
        sockaddr_in address{.sin_family = AF_INET, .sin_port = 0, .sin_addr = {htonl(INADDR_LOOPBACK)}, .sin_zero = {}};
        socklen_t size = sizeof(address);
        auto* general = reinterpret_cast<sockaddr*>(&address);
        if (bind(socket_, general, size) != 0 || listen(socket_, 8) != 0 || getsockname(socket_, general, &size) != 0)
            throw std::runtime_error("The stand-in for SQL Server gets no port.");
        Port = ntohs(address.sin_port);
        accepting_ = std::thread([this] { Accept(); });
    }
    Calls(const Calls&) = delete;
    Calls& operator=(const Calls&) = delete;

    ~Calls()
    {
        shutdown(socket_, SHUT_RDWR);
        accepting_.join();
        close(socket_);
        for (const Call& call : calls_)
            shutdown(call.Socket, SHUT_RDWR);
        for (Call& call : calls_) {
            call.Serving.join();
            close(call.Socket);
        }
    }

    TdsContents Contents;
    int Port = 0;

  private:
    struct Call
    {
        int Socket;
        std::thread Serving;
    };

    void Accept()
    {
        for (int caller = accept(socket_, nullptr, nullptr); caller >= 0; caller = accept(socket_, nullptr, nullptr))
            calls_.push_back({caller, std::thread([this, caller] { Serve(caller); })});
    }

    void Serve(int caller) const
    {
        try {
            Caller(caller, Contents, manners_).Serve();
        } catch (const Gone&) {
        } catch (const std::logic_error&) {
            // A request that the stand-in does not know.
        }
        shutdown(caller, SHUT_RDWR);
    }

    TdsManners manners_;
    int socket_;
    std::list<Call> calls_;
    std::thread accepting_;
};

TdsServer::TdsServer(TdsContents contents, TdsManners manners)
    : calls_(std::make_unique<Calls>(std::move(contents), manners))
{}

TdsServer::~TdsServer() = default;

std::string TdsServer::Address() const
{
    return "127.0.0.1," + std::to_string(calls_->Port);
}

std::string TdsServer::ConnectionString() const
{
    const TdsContents& contents = calls_->Contents;
    return ConnectionString(contents.User, contents.Password, contents.Database);
}

std::string TdsServer::ConnectionString(const std::string& user, const std::string& password,
                                        const std::string& database) const
{
    return "PROVIDER=SQLOLEDB;Data Source=" + Address() + ";Initial Catalog=" + database + ";User ID=" + user +
           ";Password={" + password + "};";
}

} // namespace veldrane::testing
