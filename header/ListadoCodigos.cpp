#include "header/ListadoCodigos.h"

#include <algorithm>
#include <array>

#include "frame/base/numbers.h"
#include "frame/context.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

/// How a row is written from its fields.
enum class Forma {
    CodigoYDescripcion,     ///< "IC01 Importación" seen and answered
    Descripcion,            ///< description seen; padded code and description answered
    DescripcionParentesis,  ///< "Caja (05)" seen, the code answered
    CodigoParentesis,       ///< "05 (Caja)" seen, the code answered
    Motivo,                 ///< "Reparación 12" seen, "12|180" answered
    Unidad,                 ///< the description with its leading blank
    Puerto,
    Divisa,
};

/// How many characters of the answer are the code; 0 takes the whole answer.
constexpr int todo = 0;
constexpr int anchoDeCodigo = 4;
constexpr int anchoDePuerto = 5;
constexpr int anchoDeDivisa = 25;

struct Definicion {
    const char *clave;
    const char *titulo;
    const char *entidad;
    const char *sentencia;
    Forma forma;
    int recorte;
};

constexpr std::array<Definicion, 24> definiciones{{
    {"SUBREG", "Subregímenes", "SYSTABLAS", "select distinct id,descripcion from sta order by id,descripcion",
     Forma::CodigoYDescripcion, anchoDeCodigo},
    {"ADUANA", "Aduanas", "SYSTABLAS", "select * from ADUANA order by descripcion,id", Forma::Descripcion,
     anchoDeCodigo},
    {"CODEMB", "Códigos de embalaje", "INTERNOS", "select * from CODEMB order by descripcion,id",
     Forma::DescripcionParentesis, anchoDeCodigo},
    {"TIPOEMB", "Tipos de embalaje", "INTERNOS", "select * from TIPOEMB order by descripcion,id",
     Forma::DescripcionParentesis, anchoDeCodigo},
    {"VIA", "Vías de transporte", "INTERNOS", "select * from via order by descripcion,id",
     Forma::CodigoParentesis, anchoDeCodigo},
    {"CODVENTA", "Condiciones de venta", "SYSTABLAS",
     "select * from CONDICIONDEVENTA order by id,descripcion", Forma::CodigoParentesis, todo},
    // The longest codes first, so that the countries come ahead of the blocs.
    {"PAIS", "Países", "SYSTABLAS", "select * from PAIS order by len(id) desc,descripcion",
     Forma::Descripcion, anchoDeCodigo},
    {"BANCOS", "Bancos", "SYSTABLAS", "select * from BANCOS order by descripcion",
     Forma::DescripcionParentesis, todo},
    {"MOTIVOS", "Motivos", "SYSTABLAS", "select * from MOTIVOS order by descripcion", Forma::Descripcion,
     anchoDeCodigo},
    {"MOTIVOSTEMPI", "Motivos de importación temporal", "SYSTABLAS",
     "select id,descripcion,dias from MOTTMP where impexpo = 'I' order by descripcion", Forma::Motivo, todo},
    {"MOTIVOSTEMPE", "Motivos de exportación temporal", "SYSTABLAS",
     "select id,descripcion,dias from MOTTMP where impexpo = 'E' order by descripcion", Forma::Motivo, todo},
    {"ESTADOMERCADERIA", "Estados de la mercadería", "INTERNOS",
     "select id , descripcion from ESTADOMERCADERIA order by id", Forma::CodigoParentesis, todo},
    {"UNIDADES", "Unidades", "SYSTABLAS",
     "select id,' ' + descripcion AS descr from UNIDADES order by descripcion ", Forma::Unidad,
     anchoDeCodigo},
    {"PUERTO", "Puertos", "INTERNOS",
     "select cpor as id,lpor as descripcion from puertos"
     " where cpor is not null and lpor is not null "
     " order by lpor",
     Forma::Puerto, anchoDePuerto},
    {"DIVISAS", "Divisas", "INTERNOS", "select * from DIVISAS order by descripcion,id", Forma::Divisa,
     anchoDeCodigo},
    {"ONCCA_ACUERDO", "Acuerdos", "SYSTABLAS", "select * from ONCCA_ACUERDO order by descripcion,id",
     Forma::DescripcionParentesis, todo},
    {"ONCCA_CATEGORIA", "Categorías", "SYSTABLAS", "select * from ONCCA_CATEGORIA order by descripcion,id",
     Forma::DescripcionParentesis, todo},
    {"ONCCA_CORTES", "Cortes", "SYSTABLAS", "select * from ONCCA_CORTES order by descripcion,id",
     Forma::DescripcionParentesis, todo},
    {"ONCCA_ELABORADOR", "Elaboradores", "SYSTABLAS",
     "select * from ONCCA_ELABORADOR order by descripcion,id", Forma::DescripcionParentesis, todo},
    {"ONCCA_ESPECIE", "Especies", "SYSTABLAS", "select * from ONCCA_ESPECIE order by descripcion,id",
     Forma::DescripcionParentesis, todo},
    {"ONCCA_FANEADOR", "Faneadores y mataderos", "SYSTABLAS",
     "select * from ONCCA_FANEADOR order by descripcion,id", Forma::DescripcionParentesis, todo},
    {"ONCCA_MECOORGBIO", "Ecológico, orgánico o biológico", "SYSTABLAS",
     "select * from ONCCA_MECOORGBIO order by descripcion,id", Forma::DescripcionParentesis, todo},
    {"ONCCA_RES3106", "Resolución 31/06 MEyP", "SYSTABLAS",
     "select * from ONCCA_RES3106 order by descripcion,id", Forma::DescripcionParentesis, todo},
    {"ONCCA_SISPRO", "Sistemas de producción", "SYSTABLAS",
     "select * from ONCCA_SISPRO order by descripcion,id", Forma::DescripcionParentesis, todo},
}};

/// Keys with a table of their own that only the look-ups read.
constexpr std::array<const char *, 1> sinLista{"MOTIVO"};

const Definicion *buscar(const QString &clave) {
    const auto *const d = std::find_if(definiciones.begin(), definiciones.end(),
                                       [&clave](const Definicion &una) { return clave == L(una.clave); });
    return d == definiciones.end() ? nullptr : d;
}

/// A value longer than the width stays as it is.
QString rellenar(const QString &texto, int ancho) {
    return texto.leftJustified(ancho, QLatin1Char(' '));
}

FilaDeCodigo hacerFila(const AppContext &ctx, const Recordset &rs, Forma forma, int recorte) {
    const QString id = rs.Texto(u"id").trimmed();
    FilaDeCodigo f;
    f.descripcion = forma == Forma::Unidad ? rs.Texto(u"descr") : rs.Texto(u"descripcion").trimmed();
    const QString &d = f.descripcion;
    const QString conCodigo = rellenar(id, anchoDeCodigo) + QLatin1Char(' ') + d;
    switch (forma) {
        case Forma::CodigoYDescripcion:
            f.vista = f.devuelto = conCodigo;
            break;
        case Forma::Descripcion:
        case Forma::Unidad:
            f.vista = d;
            f.devuelto = conCodigo;
            break;
        case Forma::DescripcionParentesis:
            f.vista = d + " ("_L1 + id + QLatin1Char(')');
            f.devuelto = id;
            break;
        case Forma::CodigoParentesis:
            f.vista = id + " ("_L1 + d + QLatin1Char(')');
            f.devuelto = id;
            break;
        case Forma::Motivo:
            f.vista = d + QLatin1Char(' ') + id;
            f.devuelto = id + QLatin1Char('|') + rs.Texto(u"dias").trimmed();
            break;
        case Forma::Puerto:
            f.vista = d;
            f.devuelto = rellenar(id, anchoDePuerto) + QLatin1Char(' ') + d;
            break;
        case Forma::Divisa:
            f.vista = d;
            f.devuelto = rellenar(id, anchoDeCodigo) + QLatin1Char(' ') + rellenar(d, anchoDeDivisa) +
                         QLatin1Char(' ') +
                         numeros::Format(rs.Numero(u"imp"), u"000.000000", ctx.SeparadorDecimal);
            break;
    }
    f.codigo = (recorte == todo ? f.devuelto : f.devuelto.left(recorte)).trimmed();
    return f;
}

}  // namespace

QStringList ListaDeCodigos::vistas() const {
    QStringList todas;
    todas.reserve(static_cast<qsizetype>(filas.size()));
    for (const FilaDeCodigo &f : filas) todas << f.vista;
    return todas;
}

bool ListadoCodigosClass::Ofrece(const QString &clave) {
    return !clave.isEmpty() && std::none_of(sinLista.begin(), sinLista.end(),
                                            [&clave](const char *una) { return clave == L(una); });
}

ListaDeCodigos ListadoCodigosClass::Listado(const QString &clave) const {
    ListaDeCodigos lista;
    if (!Ofrece(clave)) return lista;
    const Definicion *d = buscar(clave);
    lista.titulo = d != nullptr ? QString::fromUtf8(d->titulo) : clave;
    Conexion &conexion = ctx_.conexion(d != nullptr ? L(d->entidad) : QString("SYSTABLAS"_L1));
    conexion.Sql =
        d != nullptr ? QString(L(d->sentencia)) : "select * from "_L1 + clave + " order by descripcion,id"_L1;
    Recordset rs;
    conexion.crearrs(rs);
    lista.filas.reserve(static_cast<std::size_t>(rs.RecordCount()));
    for (; !rs.Eof(); rs.MoveNext())
        lista.filas.push_back(hacerFila(ctx_, rs, d != nullptr ? d->forma : Forma::Descripcion,
                                        d != nullptr ? d->recorte : anchoDeCodigo));
    return lista;
}
