#include "liquidation/readpositions.h"

#include "frame/base/values.h"
#include "frame/entities.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype conLetra = 15;
constexpr qsizetype sinLetra = 14;

}  // namespace

QString SentenciaDelNomenclador(const QString &ncm) {
    // With its letter the last four characters hold the digits and it, without the last three the digits.
    const QString digitos = ncm.right(ncm.size() == conLetra ? 4 : 3).left(3);
    return "select [015],[016],[017],[018],[019],[020],[023],[026],[028],[053],[048],[059] as lapi "
           "from ncm "
           "where [001] = "_L1 +
           EnComillas(ncm.left(10)) + " and [002] = "_L1 + EnComillas(digitos);
}

QString SentenciaDelMinimo(const QString &ncm) {
    return "select diem from DIEMCHINA where ncm = "_L1 + EnComillas(ncm.left(10));
}

QString PosicionDeItem(const Recordset &item) {
    return item.EsNulo(u"NCM") ? u"0000.00.00.000D"_s : item.Texto(u"NCM");
}

bool PosicionBienFormada(const QString &ncm) {
    return ncm.size() == sinLetra || ncm.size() == conLetra;
}

void PosicionesLeidas::Adelantar(Recordset &items) {
    QStringList delNomenclador, delMinimo;
    for (; !items.Eof(); items.MoveNext()) {
        const QString ncm = PosicionDeItem(items);
        if (!PosicionBienFormada(ncm)) continue;
        delNomenclador << SentenciaDelNomenclador(ncm);
        delMinimo << SentenciaDelMinimo(ncm);
    }
    items.MoveFirst();
    delNomenclador.removeDuplicates();
    delMinimo.removeDuplicates();
    leerJuntas(nomenclador_, entidad::ncm, delNomenclador);
    leerJuntas(minimos_, entidad::systablas, delMinimo);
}

void PosicionesLeidas::leerJuntas(Respuestas &leidas, const QString &entidad, const QStringList &sentencias) {
    const std::vector<Recordset> respuestas = ConsultarSeguidas(ctx_, entidad, sentencias);
    for (std::size_t n = 0; n < respuestas.size(); ++n)
        leidas.insert(sentencias.at(static_cast<qsizetype>(n)), respuestas[n]);
}

const Recordset &PosicionesLeidas::leer(Respuestas &leidas, const QString &entidad,
                                        const QString &sentencia) {
    auto fila = leidas.find(sentencia);
    if (fila == leidas.end()) {
        Recordset rs;
        Consultar(ctx_, entidad, sentencia, rs);
        fila = leidas.insert(sentencia, rs);
    }
    return *fila;
}

const Recordset &PosicionesLeidas::nomenclador(const QString &ncm) {
    return leer(nomenclador_, entidad::ncm, SentenciaDelNomenclador(ncm));
}

const Recordset &PosicionesLeidas::diemChina(const QString &ncm) {
    return leer(minimos_, entidad::systablas, SentenciaDelMinimo(ncm));
}
