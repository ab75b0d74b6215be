#pragma once

#include <map>

#include "kit/session/Keychain.h"

namespace orv {

/// Keeps its items for as long as the program runs.
class MemoryKeychain final : public Keychain {
 public:
  using Keychain::Keychain;

  Task<std::optional<QByteArray>> read(QString account) override {
    const auto item = m_items.find(account);
    co_return item == m_items.end() ? std::nullopt : std::optional(item->second);
  }
  Task<void> write(QString account, QByteArray data) override {
    m_items.insert_or_assign(account, data);
    co_return;
  }
  Task<void> remove(QString account) override {
    m_items.erase(account);
    co_return;
  }

 private:
  std::map<QString, QByteArray> m_items;
};

}  // namespace orv
