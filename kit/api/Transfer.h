#pragma once

#include <curl/curl.h>

#include <chrono>
#include <memory>
#include <optional>

#include "kit/api/APIClient.h"
#include "kit/api/AnswerIntake.h"
#include "kit/api/WireRequest.h"

namespace orv {

/// One request on APIClient's network thread.
class Transfer {
 public:
  using SteadyClock = std::chrono::steady_clock;

  Transfer(quint64 number, WireRequest wire, QString label, APIClient::Limits limits,
           std::shared_ptr<AnswerReceiver> receiver);
  Transfer(const Transfer&) = delete;
  Transfer& operator=(const Transfer&) = delete;
  ~Transfer();

  quint64 number() const { return m_number; }
  CURL* easy() const { return m_easy; }
  static Transfer* of(CURL* easy);

  /// The way to the service, as it is when the request begins.
  struct Route {
    /// See APIClient::useProxy().
    std::optional<QByteArray> proxy;
    /// No connection that is there already may be used, nor this one kept.
    bool fresh = false;
    /// Where what comes and goes is counted; outlives the transfer.
    qint64* meter = nullptr;
  };
  void begin(CURLM* multi, const Route& route);
  /// When the transfer has to be given up if nothing happens until then.
  SteadyClock::time_point deadline() const;
  ExchangeResult end(CURLcode code);
  const std::shared_ptr<AnswerReceiver>& receiver() const { return m_receiver; }

 private:
  template <class T>
  void set(CURLoption option, T value) {
    curl_easy_setopt(m_easy, option, value);
  }
  void configure();
  void configureConnection(const Route& route);
  static size_t takeBody(char* bytes, size_t, size_t count, void* self);
  static size_t takeHeader(char* bytes, size_t, size_t count, void* self);
  static int watch(void* self, curl_off_t, curl_off_t down, curl_off_t, curl_off_t up);
  static int goesOut(void* self, char*, char*, int, int);
  ExchangeResult resultOf(CURLcode code);
  std::optional<TransportFailure> failureOf(CURLcode code) const;
  bool noRoute() const;
  void report(const ExchangeResult& result, CURLcode code) const;

  quint64 m_number;
  WireRequest m_wire;
  QString m_label;
  APIClient::Limits m_limits;
  std::shared_ptr<AnswerReceiver> m_receiver;
  CURL* m_easy = nullptr;
  curl_slist* m_headers = nullptr;
  SteadyClock::time_point m_started, m_lastByte;
  curl_off_t m_bytes = 0;
  qint64* m_meter = nullptr;
  AnswerIntake m_intake;
  bool m_sent = false;
};

}  // namespace orv
