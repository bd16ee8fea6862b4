#include "src/Server.h"

#include "src/Connection.h"
#include "src/Control.h"
#include "src/Picture.h"
#include "src/Refusal.h"
#include "src/Text.h"

#include <chrono>
#include <httplib.h>
#include <sys/socket.h>

namespace house {
namespace {

// As many requests can hang or be delayed at the same time.
constexpr std::size_t servingThreads = 64;
constexpr std::chrono::seconds readTimeout{5};
constexpr char anyPath[] = ".*";
constexpr char jsonType[] = "application/json;charset=UTF-8";
const std::string controlStart = "/_control/";
const std::string pictureStart = "/kvupload/";

WireRequest wireRequest(const httplib::Request& request, const httplib::ContentReader* reader)
{
    WireRequest wire;
    wire.method = request.method;
    wire.path = request.target.substr(0, request.target.find('?'));
    wire.target = request.target;
    if (request.has_header("Authorization"))
        wire.authorization = request.get_header_value("Authorization");
    wire.contentType = request.get_header_value("Content-Type");
    const std::string length = request.get_header_value("Content-Length");
    wire.hasBody = request.has_header("Transfer-Encoding") || (!length.empty() && length != "0");
    wire.body = request.body;
    if (reader)
        (*reader)([&](const char* data, std::size_t size) {
            wire.body.append(data, size);
            return true;
        });
    return wire;
}

Journal::Headers headersOf(const httplib::Request& request)
{
    Journal::Headers headers;
    for (const auto& [name, value] : request.headers)
        // What the library adds to the headers that travelled.
        if (name != "REMOTE_ADDR" && name != "REMOTE_PORT" && name != "LOCAL_ADDR" && name != "LOCAL_PORT")
            headers.emplace_back(name, value);
    return headers;
}

std::string nonceOf(const WireRequest& request)
{
    for (const QueryItem& item : splitQuery(queryOf(request.target)))
        if (item.key == "nonce")
            return item.value;
    return {};
}

} // namespace

Server::Server(House& house, Log& log) : house(house), log(log) {}

Server::~Server() { stop(); }

std::string Server::bind(const Options& options)
{
    if (options.certFile.empty())
        http = std::make_unique<httplib::Server>();
    else
        http = std::make_unique<httplib::SSLServer>(options.certFile.c_str(), options.keyFile.c_str());
    if (!http->is_valid())
        return "cannot use the certificate " + options.certFile + " with the key " + options.keyFile;

    // The library's own options would let two houses share a port.
    http->set_socket_options([](int socket) {
        const int yes = 1;
        setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    });
    http->set_keep_alive_max_count(1);
    http->set_read_timeout(readTimeout);
    http->set_tcp_nodelay(true);
    http->new_task_queue = [] { return new httplib::ThreadPool(servingThreads); };

    const auto plain = [this](const httplib::Request& request, httplib::Response& response) {
        serve(request, response, nullptr);
    };
    // Read by hand, because the library refuses forms above 8 kB.
    const auto reading = [this](const httplib::Request& request, httplib::Response& response,
                                const httplib::ContentReader& reader) { serve(request, response, &reader); };
    http->Get(anyPath, plain);
    http->Options(anyPath, plain);
    http->Post(anyPath, reading);
    http->Put(anyPath, reading);
    http->Patch(anyPath, reading);
    http->Delete(anyPath, reading);

    if (options.port == 0)
        listeningPort = http->bind_to_any_port(options.host);
    else
        listeningPort = http->bind_to_port(options.host, options.port) ? options.port : -1;
    return listeningPort > 0 ? std::string()
                             : "cannot listen on " + options.host + ":" + std::to_string(options.port);
}

void Server::start()
{
    listener = std::thread([this] {
        http->listen_after_bind();
        listenerDone = true;
    });
}

void Server::stop()
{
    if (!listener.joinable())
        return;
    stopping = true;
    bool isTold = false;
    // Again and again: a connection may be accepted, or the listener may come up, in between.
    while (!listenerDone) {
        if (!isTold && http->is_running()) {
            http->stop();
            isTold = true;
        }
        cutAllConnections(listeningPort);
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    listener.join();
}

void Server::serve(const httplib::Request& request, httplib::Response& response,
                   const httplib::ContentReader* reader)
{
    const WireRequest wire = wireRequest(request, reader);
    if (wire.path.compare(0, controlStart.size(), controlStart) == 0) {
        serveControl(wire, request.remote_addr, response);
    } else if (wire.method == "GET" && wire.path.compare(0, pictureStart.size(), pictureStart) == 0) {
        finish(picture(wire.path), wire, request, response);
    } else {
        finish(decide(wire, headersOf(request)), wire, request, response);
    }
}

/// Who steers the house sits at its machine, whoever may call it.
void Server::serveControl(const WireRequest& request, const std::string& peer, httplib::Response& response)
{
    ControlAnswer answer{403, "{\"error\":\"the control paths serve this machine only\"}\n"};
    if (peer.compare(0, 4, "127.") == 0 || peer == "::1" || peer.compare(0, 11, "::ffff:127.") == 0)
        answer = handleControl(house, request);
    response.status = answer.status;
    response.set_content(answer.body, jsonType);
}

void Server::finish(const Outcome& outcome, const WireRequest& wire, const httplib::Request& request,
                    httplib::Response& response)
{
    using Ending = Outcome::Ending;
    bool isReached = true;
    if (outcome.ending == Ending::Cut || outcome.ending == Ending::Never || outcome.delayMs > 0) {
        const int connection = findConnection(request.remote_port, listeningPort);
        if (outcome.ending == Ending::Never)
            waitOnConnection(connection, forever, stopping);
        else if (outcome.delayMs > 0)
            isReached = waitOnConnection(connection, outcome.delayMs, stopping);
        if (outcome.ending != Ending::Answer || !isReached) {
            cutConnection(connection);
            return;
        }
    }
    response.status = outcome.status;
    if (outcome.ending == Ending::HalfAnswer) {
        const std::string& body = outcome.body;
        response.set_content_provider(body.size(), outcome.contentType,
                                      [body](std::size_t, std::size_t, httplib::DataSink& sink) {
                                          sink.write(body.data(), body.size() / 2);
                                          return false;
                                      });
        return;
    }
    response.set_content(outcome.body, outcome.contentType);
    const std::lock_guard<std::mutex> lock(house.mutex);
    house.nonces.markAnswered(nonceOf(wire));
}

Server::Outcome Server::faulty(const std::optional<Fault>& fault)
{
    using Ending = Outcome::Ending;
    const FaultKind kind = fault ? fault->kind : FaultKind::None;
    Outcome outcome;
    if (kind == FaultKind::Http500 || kind == FaultKind::Http500Ok)
        outcome.status = 500;
    if (kind == FaultKind::Drop || kind == FaultKind::DropAfter)
        outcome.ending = Ending::Cut;
    else if (kind == FaultKind::Hang)
        outcome.ending = Ending::Never;
    else if (kind == FaultKind::Truncate)
        outcome.ending = Ending::HalfAnswer;
    if (fault)
        outcome.delayMs = fault->delayMs;
    if (kind == FaultKind::Garbage)
        outcome.body = "<html>\xff\xfe 502 \x01</html>";
    else if (kind == FaultKind::Http500)
        outcome.body = Reply::refuse("SYS_ERR_0500", "系统繁忙，请稍后再试").text();
    return outcome;
}

Server::Outcome Server::decide(const WireRequest& request, Journal::Headers headers)
{
    const std::lock_guard<std::mutex> lock(house.mutex);
    const std::uint64_t number = house.journal.add(request, std::move(headers));
    const std::optional<Fault> fault = house.faults.take(request.path);
    Outcome outcome = faulty(fault);
    const FaultKind kind = fault ? fault->kind : FaultKind::None;
    if (outcome.body.empty() && kind != FaultKind::Drop && kind != FaultKind::Hang)
        execute(request, fault, number, outcome);
    return outcome;
}

Server::Outcome Server::picture(const std::string& path)
{
    std::unique_lock<std::mutex> lock(house.mutex);
    Outcome outcome = faulty(house.faults.take(pictureStart));
    lock.unlock();
    if (!outcome.body.empty())
        return outcome;
    outcome.body = drawnPicture(path);
    outcome.contentType = "image/png";
    if (outcome.body.empty())
        outcome.status = 404;
    return outcome;
}

void Server::execute(const WireRequest& request, const std::optional<Fault>& fault, std::uint64_t number,
                     Outcome& outcome)
{
    const std::optional<std::string> scripted = house.answers.take(request.path);
    const Endpoint* endpoint = house.endpoints.find(request.path);
    if (scripted)
        outcome.body = *scripted;
    if (!endpoint && scripted)
        return;
    if (!endpoint && request.path == house.seed.document["lines"].value("lineCheckHttpPath", "")) {
        house.journal.noteExecuted(request.path);
        outcome.body = "ok";
        outcome.contentType = "text/plain";
        return;
    }
    std::optional<Reply> instead;
    if (scripted)
        instead = Reply::done();
    else if (fault && fault->kind == FaultKind::Refuse)
        instead = Reply::refuse(fault->code, "服务器拒绝了此操作");
    const Reply reply = endpoint ? executeEndpoint(*endpoint, request, instead)
                                 : Reply::refuse("REQ_ERR_PATH", "请求错误：没有此接口" + request.path);
    house.journal.noteCode(number, reply.code);
    if (!reply.isGood())
        log.line(reply.code + " " + request.method + " " + request.path + ": " + reply.msg);
    if (!scripted)
        outcome.body = reply.text();
}

Reply Server::executeEndpoint(const Endpoint& endpoint, const WireRequest& request,
                              const std::optional<Reply>& instead)
{
    try {
        const Call call = checkRequest(house, endpoint, request);
        if (instead)
            return *instead;
        house.journal.noteExecuted(request.path);
        return endpoint.answer(house, call);
    } catch (const Refusal& refusal) {
        return Reply::refuse(refusal.code, refusal.msg);
    } catch (const nlohmann::json::exception& error) {
        return Reply::refuse("REQ_ERR_FIELD", std::string("请求错误：字段内容不正确，") + error.what());
    }
}

} // namespace house
