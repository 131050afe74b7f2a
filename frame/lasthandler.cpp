#include "frame/lasthandler.h"

#include <cstdio>
#include <exception>
#include <new>

#include "frame/base/failure.h"

using namespace Qt::StringLiterals;

QString TextoDeLaExcepcion() {
    try {
        throw;
    } catch (const Falla &e) {
        return e.descripcion;
    } catch (const std::bad_alloc &) {
        return u"La memoria de la PC no alcanza para este trabajo; cierre otros programas o use archivos más "
               "chicos, y vuelva a intentarlo."_s;
    } catch (const std::exception &e) {
        return u"El programa encontró un defecto propio (%1) y no puede seguir; vuelva a iniciarlo y avise a "
               "quien se lo entregó."_s.arg(QString::fromLocal8Bit(e.what()));
    } catch (...) {
        return u"El programa encontró un defecto propio y no puede seguir; vuelva a iniciarlo y avise a quien "
               "se lo entregó."_s;
    }
}

int CorrerConUltimaDefensa(const std::function<int()> &trabajo,
                           const std::function<void(const QString &)> &decir, int siFalla) {
    QString texto;
    try {
        return trabajo();
    } catch (...) {
        texto = TextoDeLaExcepcion();
    }
    try {
        decir(texto);
    } catch (...) {
        std::fprintf(stderr, "%s\n%s\n", texto.toUtf8().constData(),
                     TextoDeLaExcepcion().toUtf8().constData());
    }
    return siFalla;
}
