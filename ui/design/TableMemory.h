#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <functional>

namespace orv {

/// Where tables keep what a person made of them, by the table's name. The program says where that is.
class TableMemory : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("The program owns it.")

 public:
  using Read = std::function<QByteArray(const QString& table)>;
  using Write = std::function<void(const QString& table, const QByteArray& layout)>;

  TableMemory(Read read, Write write, QObject* parent = nullptr)
      : QObject(parent), m_read(std::move(read)), m_write(std::move(write)) {}

  QByteArray read(const QString& table) const { return m_read(table); }
  void write(const QString& table, const QByteArray& layout) { m_write(table, layout); }

 private:
  Read m_read;
  Write m_write;
};

}  // namespace orv
