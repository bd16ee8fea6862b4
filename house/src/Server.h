#pragma once

#include "src/House.h"
#include "src/Log.h"
#include "src/Options.h"

#include <atomic>
#include <memory>
#include <string>
#include <thread>

namespace httplib {
class Server;
struct Request;
struct Response;
class ContentReader;
} // namespace httplib

namespace house {

/// Carries the house over HTTP: one thread accepts, a pool serves, each connection one request.
class Server
{
public:
    Server(House& house, Log& log);
    ~Server();

    /// Starts to listen; requests wait until start(). Empty on success, else what failed.
    std::string bind(const Options& options);
    int port() const { return listeningPort; }
    void start();
    /// Cuts what is still open and returns when every request has ended.
    void stop();

private:
    /// How a request ends.
    struct Outcome
    {
        enum class Ending { Answer, HalfAnswer, Cut, Never };
        Ending ending = Ending::Answer;
        int status = 200;
        int delayMs = 0;
        std::string body;
        std::string contentType = "application/json;charset=UTF-8";
    };

    void serveControl(const WireRequest& request, const std::string& peer, httplib::Response& response);
    void serve(const httplib::Request& request, httplib::Response& response,
               const httplib::ContentReader* reader);
    void finish(const Outcome& outcome, const WireRequest& wire, const httplib::Request& request,
                httplib::Response& response);
    /// Nothing but the fault, if there is one: its body is empty where the answer is still to be made.
    static Outcome faulty(const std::optional<Fault>& fault);
    Outcome decide(const WireRequest& request, Journal::Headers headers);
    /// Faults of all pictures are those of the path "/kvupload/"; nothing else is asked of who wants one.
    Outcome picture(const std::string& path);
    void execute(const WireRequest& request, const std::optional<Fault>& fault, std::uint64_t number,
                 Outcome& outcome);
    /// With `instead` the request is checked and not executed.
    Reply executeEndpoint(const Endpoint& endpoint, const WireRequest& request,
                          const std::optional<Reply>& instead);

    House& house;
    Log& log;
    std::unique_ptr<httplib::Server> http;
    std::thread listener;
    std::atomic<bool> stopping{false};
    std::atomic<bool> listenerDone{false};
    int listeningPort = 0;
};

} // namespace house
