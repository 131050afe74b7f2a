#pragma once
// The statements sent while it lives.

#include <QStringList>

#include "frame/store/store.h"

class Traza {
 public:
    Traza() {
        Conexion::fijarTraza(
            [this](const TrazaDeSentencia &t) { sentencias_ << t.entidad + u'|' + t.sentencia; });
    }
    ~Traza() { Conexion::fijarTraza({}); }
    Traza(const Traza &) = delete;
    Traza &operator=(const Traza &) = delete;

    /// "ENTITY|statement", in order.
    const QStringList &sentencias() const { return sentencias_; }
    /// Joined, for a comparison that shows what differs.
    std::string texto() const { return sentencias_.join(u'\n').toStdString(); }

 private:
    QStringList sentencias_;
};
