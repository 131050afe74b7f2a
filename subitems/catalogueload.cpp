#include "subitems/catalogueload.h"

#include <QHash>
#include <QSet>
#include <optional>
#include <utility>
#include <vector>

#include "frame/base/numbers.h"
#include "frame/base/texts.h"
#include "frame/context.h"
#include "frame/csv.h"
#include "frame/entities.h"
#include "frame/transaction.h"
#include "subitems/catalogue.h"

using namespace Qt::StringLiterals;

namespace {

using ArticleStore::Articulo;

constexpr qsizetype sentenciasPorViaje = 500;
constexpr qsizetype largoDeClave = 50;

/// A column of the file: its names, without accents and signs, and where it goes. The lengths are those of
/// the screen's fields.
struct ColumnaDeCatalogo {
    const char *nombres;  ///< the record's own first
    QString Articulo::*texto = nullptr;
    std::optional<double> Articulo::*cifra = nullptr;
    int largo = 0;
};
const ColumnaDeCatalogo columnasDelArchivo[] = {
    {"idcatalogo catalogo", &Articulo::idcatalogo, nullptr, largoDeClave},
    {"idarticulo articulo codigo", &Articulo::idarticulo, nullptr, largoDeClave},
    {"descripcion nombre", &Articulo::descripcion, nullptr, 255},
    {"descripcionmaria descripciondjaimaria", &Articulo::Descripcion_Maria, nullptr, 255},
    {"ncm posicion posicionarancelaria", &Articulo::ncm, nullptr, 15},
    {"idunidad unidad un", &Articulo::idunidad, nullptr, 4},
    {"preciounitario precio preciounit unitario valorunitario", nullptr, &Articulo::preciounitario, 20},
    {"kgneto kgunitario pesounitario kilos", nullptr, &Articulo::kgneto, 20},
    {"idpais pais origen paisdeorigen", &Articulo::idpais, nullptr, 4},
    {"idpaisproc procedencia paisdeprocedencia", &Articulo::idpaisproc, nullptr, 4},
    {"estadomerc estado estadodelamercaderia", &Articulo::estadomerc, nullptr, 4},
    {"biendeuso", &Articulo::biendeuso, nullptr, 0},
    {"sufijos", &Articulo::sufijos, nullptr, 0},
    {"naladisa", &Articulo::naladisa, nullptr, 20},
    {"codigoean ean", &Articulo::codigoean, nullptr, 20},
    {"itfiller filler", &Articulo::itfiller, nullptr, 40},
    {"otros", &Articulo::otros, nullptr, 100},
};

/// "Descripción (DJAI) MARIA" and "descripcion_djai_maria" are one name.
QString nombrePelado(const QString &encabezado) {
    QString pelado;
    for (const QChar c : encabezado.normalized(QString::NormalizationForm_D))
        if (c.isLetterOrNumber()) pelado += c.toLower();
    return pelado;
}

const ColumnaDeCatalogo *columnaDe(const QString &encabezado) {
    const QString pelado = nombrePelado(encabezado);
    for (const ColumnaDeCatalogo &c : columnasDelArchivo)
        if (QString::fromLatin1(c.nombres).split(u' ').contains(pelado)) return &c;
    return nullptr;
}

/// One load while it runs.
class CargaEnMarcha {
 public:
    CargaEnMarcha(AppContext &ctx, QString idcatalogo, bool reemplazar, CargaDeCatalogo &resultado)
        : ctx_(ctx),
          idcatalogo_(std::move(idcatalogo)),
          reemplazar_(reemplazar),
          resultado_(resultado),
          revisor_(ctx) {}

    void cargar(csv::Lector &lector, const QString &archivo) {
        tomarColumnas(lector, archivo);
        leerPresentes();
        // What is there was read ahead of it: a transaction that begins with a write waits for whoever else
        // writes, one that begins with a read is refused.
        Transaccion transaccion(ctx_.conexion(entidad::catalogos));
        csv::Registro registro;
        while (lector.siguienteFila(registro, resultado_.avisos)) {
            const QString defecto = tomarFila(registro);
            if (!defecto.isEmpty()) rechazar(registro, defecto);
            if (porMandar_.size() >= sentenciasPorViaje) mandar();
        }
        mandar();
        transaccion.Confirmar();
        resultado_.rechazadas += lector.descartadas();
    }

 private:
    void tomarColumnas(const csv::Lector &lector, const QString &archivo) {
        QSet<const ColumnaDeCatalogo *> usadas;
        for (const QString &nombre : lector.encabezado()) {
            const ColumnaDeCatalogo *columna = columnaDe(nombre);
            const bool repetida = columna != nullptr && usadas.contains(columna);
            columnas_.push_back(repetida ? nullptr : columna);
            usadas << columna;
            if (columna == nullptr)
                resultado_.avisos << csv::AvisoDeLinea(
                    1, u"no se conoce la columna \"%1\"; no se carga"_s.arg(nombre));
            else if (repetida)
                resultado_.avisos << csv::AvisoDeLinea(
                    1, u"la columna \"%1\" está repetida; se toma la primera"_s.arg(nombre));
        }
        if (!usadas.contains(columnaDe(u"idarticulo"_s)) && !usadas.contains(columnaDe(u"descripcion"_s)))
            throw Falla{
                0,
                u"catálogo"_s,
                u"El archivo %1 no tiene la columna idarticulo; revise su primera línea."_s.arg(archivo),
                {}};
    }

    void leerPresentes() {
        const std::vector<Articulo> todos = ArticleStore::LeerTodos(ctx_, idcatalogo_);
        for (const Articulo &a : todos) presentes_.insert(a.idarticulo.toCaseFolded(), a);
        if (!todos.empty()) idcatalogo_ = todos.front().idcatalogo;  // one catalogue has one spelling
    }

    void rechazar(const csv::Registro &registro, QString defecto) {
        if (defecto.endsWith(u'.')) defecto.chop(1);
        resultado_.avisos << csv::AvisoDeLinea(registro.linea, defecto + u"; la fila no se carga"_s);
        ++resultado_.rechazadas;
    }

    /// Puts the row among the statements to be sent; answers what stands against it.
    QString tomarFila(const csv::Registro &registro) {
        Articulo a;
        if (QString defecto = leerCampos(registro, a); !defecto.isEmpty()) return defecto;
        if (!a.idcatalogo.isEmpty() && a.idcatalogo.compare(idcatalogo_, Qt::CaseInsensitive) != 0)
            return u"el artículo %1 es del catálogo %2 y no del %3"_s.arg(a.idarticulo, a.idcatalogo,
                                                                          idcatalogo_);
        if (a.idarticulo.isEmpty()) a.idarticulo = a.descripcion.left(largoDeClave).trimmed();
        const QString clave = a.idarticulo.toCaseFolded();
        if (const qint64 linea = vistos_.value(clave); linea > 0)
            return u"el artículo %1 está repetido, es el de la línea %2"_s.arg(a.idarticulo,
                                                                               QString::number(linea));
        const auto presente = presentes_.constFind(clave);
        const bool esta = presente != presentes_.constEnd();
        if (esta && !reemplazar_)
            return u"el artículo %1 ya está en el catálogo %2, reemplácelo si hay que cambiarlo"_s.arg(
                a.idarticulo, idcatalogo_);
        if (esta) {
            Articulo cambiado = *presente;
            leerCampos(registro, cambiado);
            a = cambiado;
            a.idarticulo = presente->idarticulo;
        }
        a.idcatalogo = idcatalogo_;
        if (QString defecto = revisor_.Revisar(a); !defecto.isEmpty()) return defecto;
        vistos_.insert(clave, registro.linea);
        if (esta && a == *presente) {
            ++resultado_.iguales;
            return {};
        }
        porMandar_ << (esta ? ArticleStore::SentenciaDeReemplazo(ctx_, a)
                            : ArticleStore::SentenciaDeAlta(ctx_, a));
        ++(esta ? resultado_.reemplazados : resultado_.agregados);
        return {};
    }

    /// Takes the fields of the row into the article; what the file has no column for stays.
    QString leerCampos(const csv::Registro &registro, Articulo &a) const {
        for (std::size_t i = 0; i < columnas_.size(); ++i) {
            const ColumnaDeCatalogo *columna = columnas_[i];
            if (columna == nullptr) continue;
            const QString valor = registro.campos.at(static_cast<qsizetype>(i)).trimmed();
            const QString nombre = QString::fromLatin1(columna->nombres).section(u' ', 0, 0);
            if (columna->largo > 0 && valor.size() > columna->largo)
                return u"%1 tiene %2 caracteres y entran %3"_s.arg(nombre)
                    .arg(valor.size())
                    .arg(columna->largo);
            if (QString defecto = DefectoDeTexto(valor); !defecto.isEmpty()) return defecto;
            if (columna->texto != nullptr) {
                a.*columna->texto = valor;
                continue;
            }
            if (!valor.isEmpty() && !numeros::esNumerico(valor))
                return u"\"%1\" no es un número para %2"_s.arg(valor, nombre);
            a.*columna->cifra = valor.isEmpty() ? std::optional<double>() : numeros::aNumero(valor);
        }
        return leerBienDeUso(a);
    }

    static QString leerBienDeUso(Articulo &a) {
        const QString dicho = a.biendeuso.toUpper();
        if (!QStringList{QString(), u"S"_s, u"N"_s, u"SI"_s, u"SÍ"_s, u"NO"_s}.contains(dicho))
            return u"\"%1\" no es S ni N para biendeuso"_s.arg(a.biendeuso);
        a.biendeuso = dicho.startsWith(u'S') ? u"S"_s : u"N"_s;
        return {};
    }

    void mandar() { ctx_.conexion(entidad::catalogos).EjecutarSeguidas(std::exchange(porMandar_, {})); }

    AppContext &ctx_;
    QString idcatalogo_;
    bool reemplazar_;
    CargaDeCatalogo &resultado_;
    RevisorDeArticulos revisor_;
    std::vector<const ColumnaDeCatalogo *> columnas_;  ///< of each field; null for one that is not taken
    QHash<QString, Articulo> presentes_;
    QHash<QString, qint64> vistos_;  ///< the line of each article that was kept
    QStringList porMandar_;
};

}  // namespace

CargaDeCatalogo CargarCatalogo(AppContext &ctx, const QString &idcatalogo, const QString &archivo,
                               bool reemplazar) {
    CargaDeCatalogo resultado;
    csv::Lector lector;
    if (!lector.abrir(archivo, resultado.error)) return resultado;
    try {
        CargaEnMarcha(ctx, idcatalogo.trimmed(), reemplazar, resultado).cargar(lector, archivo);
        resultado.ok = true;
    } catch (const Falla &e) {
        const bool dicho = e.sentencia.isEmpty();
        resultado = {};
        resultado.error =
            dicho ? e.descripcion
                  : u"No se cargó nada de %1: el store lo rechazó (%2)."_s.arg(archivo, e.descripcion);
    }
    return resultado;
}
