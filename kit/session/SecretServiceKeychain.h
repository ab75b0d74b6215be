#pragma once

#include <chrono>
#include <memory>

#include "kit/async/Clock.h"
#include "kit/session/Keychain.h"

namespace orv {

/// Items in the desktop's secret service (org.freedesktop.secrets), in its default collection: local to this machine.
///
/// The service is spoken to on one thread of its own, one request at a time (parallel ones stack their unlock prompts),
/// so a service that is slow or never answers delays nobody but the waiting task. Confined to one thread itself.
class SecretServiceKeychain final : public Keychain {
 public:
  struct Limits {
    /// For a service that owes an answer, from when it was asked; then the request fails as `silent`.
    std::chrono::milliseconds answer = std::chrono::seconds(30);
    /// For a person whom the service asks to unlock the keyring.
    std::chrono::milliseconds unlocking = std::chrono::minutes(5);
  };

  /// `label` is the items' name in the desktop's password manager. The clock outlives the keychain.
  SecretServiceKeychain(QString service, QString label, Clock& clock, Limits limits);
  SecretServiceKeychain(QString service, QString label, Clock& clock);
  ~SecretServiceKeychain() override;

  Task<std::optional<QByteArray>> read(QString account) override;
  Task<void> write(QString account, QByteArray data) override;
  Task<void> remove(QString account) override;

 private:
  struct Job;
  class Worker;
  class Awaiter;

  QString m_label;
  Clock& m_clock;
  Limits m_limits;
  std::unique_ptr<Worker> m_worker;
};

}  // namespace orv
