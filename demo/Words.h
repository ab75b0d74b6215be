#pragma once

#include <QStringList>

/// What the sample's people and companies are called.
namespace orv::demo::words {

const QStringList& industries();
const QStringList& regions();
const QStringList& cities();
/// What companies are called before their trade.
const QStringList& companies();
const QStringList& firstNames();
const QStringList& lastNames();
const QStringList& titles();

}  // namespace orv::demo::words
