#include "tests/support/Nginx.h"

#include <poll.h>

#include <stdexcept>

#include "tests/support/Loopback.h"

namespace zn {
namespace {

constexpr std::string_view places = R"(
        location /gzip/ {
            gzip on;
            gzip_types *;
            gzip_min_length 1;
            rewrite ^/gzip(/.*)$ $1 break;
        }
        location = /connection { return 200 $connection; }
        location /echo { return 200 $request_uri; }
        location = /accepts { return 200 $http_accept_encoding; }
        location = /agent { return 200 $http_user_agent; }
        location /moved/ { rewrite ^/moved(/.*)$ $1 redirect; }
)";

}  // namespace

Nginx::Nginx(Encryption encryption, int processes)
    : encryption_(encryption), processes_(processes) {
    std::filesystem::create_directories(folder_.path("files"));
    if (encryption_ == Encryption::SelfSigned &&
        runCommand("cd " + folder_.path() +
                   " && openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes"
                   " -keyout key.pem -out certificate.pem -days 2 -subj /CN=test"
                   " -addext subjectAltName=IP:127.0.0.1")
                .status != 0)
        throw std::runtime_error("openssl made no certificate");
    // A port that was free may be taken before the server has it.
    for (int attempt = 0; attempt < 5; ++attempt)
        if (start())
            return;
    throw std::runtime_error("nginx does not start: " +
                             runCommand("cat " + folder_.path("log")).output);
}

std::string Nginx::url(const std::string& path) const {
    return loopbackURL(encryption_ == Encryption::None ? "http" : "https", port_, path);
}

void Nginx::write(std::string_view name, std::string_view contents) const {
    folder_.write("files/" + std::string(name), contents);
}

std::string Nginx::configuration() const {
    const std::string folder = folder_.path();
    std::string text = "daemon off;\npid " + folder + "/pid;\nerror_log " + folder + "/log;\n";
    text += processes_ == 0 ? "master_process off;\n"
                            : "user root;\nworker_processes " + std::to_string(processes_) + ";\n";
    text += "events { worker_connections 256; }\nhttp {\n    access_log off;\n";
    for (const char* use : {"client_body", "proxy", "fastcgi", "uwsgi", "scgi"})
        text += std::string("    ") + use + "_temp_path " + folder + "/" + use + ";\n";
    text +=
        "    default_type application/octet-stream;\n    absolute_redirect off;\n    server {\n";
    text += "        listen 127.0.0.1:" + std::to_string(port_);
    if (encryption_ == Encryption::SelfSigned)
        text += " ssl;\n        ssl_certificate " + certificate() +
                ";\n        ssl_certificate_key " + folder + "/key.pem";
    text += ";\n        root " + folder + "/files;\n";
    return text.append(places) + "    }\n}\n";
}

bool Nginx::start() {
    port_ = portOf(boundSocket());
    const std::string file = folder_.write("configuration", configuration());
    // It must not outlive a test that crashes.
    process_ = std::make_unique<ChildProcess>(
        std::vector<std::string>{"setpriv", "--pdeathsig", "TERM", "/usr/sbin/nginx", "-e",
                                 folder_.path("log"), "-c", file});
    for (int attempt = 0; attempt < 1000 && process_->running(); ++attempt) {
        if (isReady())
            return true;
        poll(nullptr, 0, 10);
    }
    return false;
}

/// It writes its file when the port is its own.
bool Nginx::isReady() {
    return std::filesystem::exists(folder_.path("pid")) && isListening(port_);
}

}  // namespace zn
