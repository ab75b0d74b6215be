#pragma once

#include <QString>
#include <boost/describe/class.hpp>
#include <memory>

namespace orv {

/// A record in a list, beside what is made of it once: the text that is searched, the keys that rows are sorted by.
/// Both are shared, since ten thousands of rows go through filter, order and model at every keystroke.
template <class Record_, class Prepared_>
class Listed {
  struct Both {
    explicit Both(Record_ given) : record(std::move(given)), prepared(record) {}
    Record_ record;
    Prepared_ prepared;
  };

 public:
  Listed() = default;
  explicit Listed(const Record_& record) : id(record.id), m_both(std::make_shared<const Both>(record)) {}

  QString id;
  const Record_& record() const { return m_both->record; }
  const Prepared_& prepared() const { return m_both->prepared; }

  friend bool operator==(const Listed& a, const Listed& b) {
    return a.m_both == b.m_both || (a.m_both && b.m_both && a.record() == b.record());
  }

  // What else a table shows of it is said by the model.
  BOOST_DESCRIBE_CLASS(Listed, (), (id), (), ())

 private:
  std::shared_ptr<const Both> m_both;
};

}  // namespace orv
