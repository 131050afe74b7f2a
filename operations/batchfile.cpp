#include "operations/batchfile.h"

#include <QJsonArray>
#include <algorithm>

#include "frame/base/numbers.h"
#include "frame/base/values.h"

using namespace Qt::StringLiterals;

namespace lote {

namespace {

QString malaForma(const QString &ruta, const QString &debe) {
    return u"\"%1\" debe ser %2; corrija el archivo de cambios."_s.arg(ruta, debe);
}

QString defectoDelObjeto(const QJsonObject &objeto, const std::vector<Miembro> &miembros, const QString &ruta,
                         Qt::CaseSensitivity caja = Qt::CaseSensitive);

QString defectoDelValor(const QJsonValue &v, const Miembro &m, const QString &ruta) {
    switch (m.forma) {
        case Forma::Valor:
            return v.isString() || v.isDouble() || v.isBool() ? QString()
                                                              : malaForma(ruta, u"un texto o un número"_s);
        case Forma::Objeto:
            return v.isObject()
                       ? defectoDelObjeto(v.toObject(), m.dentro, ruta,
                                          m.enCualquierCaja ? Qt::CaseInsensitive : Qt::CaseSensitive)
                       : malaForma(ruta, u"un objeto"_s);
        case Forma::Textos: {
            const QJsonArray lista = v.toArray();
            const bool textos = v.isArray() && std::all_of(lista.begin(), lista.end(),
                                                           [](const auto &uno) { return uno.isString(); });
            return textos ? QString() : malaForma(ruta, u"una lista de textos"_s);
        }
        case Forma::Lista:
            break;
    }
    if (!v.isArray()) return malaForma(ruta, u"una lista de objetos"_s);
    const QJsonArray lista = v.toArray();
    for (const auto &uno : lista) {
        if (!uno.isObject()) return malaForma(ruta, u"una lista de objetos"_s);
        if (QString defecto = defectoDelObjeto(uno.toObject(), m.dentro, ruta); !defecto.isEmpty())
            return defecto;
    }
    return {};
}

QString defectoDelObjeto(const QJsonObject &objeto, const std::vector<Miembro> &miembros, const QString &ruta,
                         Qt::CaseSensitivity caja) {
    const auto camino = [&ruta](const QString &nombre) {
        return ruta.isEmpty() ? nombre : ruta + u'.' + nombre;
    };
    for (auto o = objeto.constBegin(); o != objeto.constEnd(); ++o) {
        const auto m = std::find_if(miembros.begin(), miembros.end(), [&o, caja](const Miembro &uno) {
            return uno.nombre.compare(o.key(), caja) == 0;
        });
        if (m == miembros.end())
            return u"\"%1\" no se puede cambiar; corrija el archivo de cambios."_s.arg(camino(o.key()));
        if (QString defecto = defectoDelValor(o.value(), *m, camino(o.key())); !defecto.isEmpty())
            return defecto;
    }
    for (const Miembro &m : miembros)
        if (m.obligatorio && !objeto.contains(m.nombre))
            return u"Falta \"%1\"; complete el archivo de cambios."_s.arg(camino(m.nombre));
    return {};
}

}  // namespace

QString DefectoDe(const QJsonObject &objeto, const std::vector<Miembro> &miembros) {
    return defectoDelObjeto(objeto, miembros, {});
}

QString TextoDeValor(const QJsonValue &valor, QChar separador) {
    if (valor.isBool()) return valor.toBool() ? u"S"_s : u"N"_s;
    if (!valor.isDouble()) return valor.toString();
    QString texto = numeros::aTexto(valor.toDouble());
    return ReemplazarSeparadorDecimal(texto, separador);
}

QStringList TextosDeLista(const QJsonValue &valor) {
    QStringList textos;
    const QJsonArray lista = valor.toArray();
    for (const auto &uno : lista) textos << uno.toString();
    return textos;
}

}  // namespace lote
