#include "header/ClientBook.h"

#include <QRegularExpression>
#include <algorithm>
#include <array>

#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "frame/escritura.h"
#include "frame/transaction.h"

using namespace Qt::StringLiterals;

namespace ClientBook {

namespace {

using L = QLatin1String;

using entidad::personal;

/// The columns of a record by kind, in the order of the table.
struct Texto {
    const char *columna;
    QString Ficha::*campo;
};
constexpr std::array<Texto, 3> textos{
    {{"nombre", &Ficha::nombre}, {"domicilio", &Ficha::domicilio}, {"email", &Ficha::email}}};

struct Numero {
    const char *columna;
    QString Ficha::*campo;
    const char *nombre;  ///< as a message calls it
};
constexpr std::array<Numero, 7> numericos{
    {{"regalias", &Ficha::regalias, "El porcentaje de regalías"},
     {"ajxvinc_4102", &Ficha::ajxvinc_4102, "El porcentaje de ajuste por vinculación"},
     {"eximganvalor", &Ficha::eximganvalor, "El porcentaje de exención de ganancias"},
     {"eximganvalortemp", &Ficha::eximganvalortemp, "El porcentaje temporal de exención de ganancias"},
     {"ivaareduccionvalor", &Ficha::ivaareduccionvalor, "El porcentaje de reducción de IVA adicional"},
     {"ivaareduccionvalortemp", &Ficha::ivaareduccionvalortemp,
      "El porcentaje temporal de reducción de IVA adicional"},
     {"ingbru", &Ficha::ingbru, "El porcentaje de ingresos brutos"}}};

struct Bandera {
    const char *columna;
    bool Ficha::*campo;
};
constexpr std::array<Bandera, 4> banderas{{{"eximgan", &Ficha::eximgan},
                                           {"ivaareduccion", &Ficha::ivaareduccion},
                                           {"cvdi", &Ficha::cvdi},
                                           {"ExcepLAPIAEC", &Ficha::ExcepLAPIAEC}}};

bool existe(AppContext &ctx, const QString &entidad, const QString &sql) {
    Recordset rs;
    return Consultar(ctx, entidad, sql, rs) && rs.Numero(u"cant") > 0;
}

void revisarCuit(AppContext &ctx, const QString &cuit, std::vector<Falta> &faltas) {
    constexpr int largo = 11;
    const QString campo = u"cuit"_s;
    if (cuit.isEmpty()) {
        faltas.push_back({campo, u"Falta el CUIT del cliente, ingréselo para guardar."_s});
        return;
    }
    const bool cifras = std::all_of(cuit.begin(), cuit.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
    if (cuit.size() != largo || !cifras) {
        faltas.push_back({campo, u"El CUIT %1 no tiene 11 dígitos, corríjalo."_s.arg(cuit)});
        return;
    }
    if (!CUITValido(cuit)) {
        faltas.push_back(
            {campo, u"El dígito verificador del CUIT %1 no es correcto, revise el número."_s.arg(cuit)});
        return;
    }
    if (existe(ctx, personal,
               "select count(*) as cant from clientes where cuit = "_L1 + TextoEnComillas(cuit)))
        faltas.push_back(
            {campo,
             u"Ya existe un cliente con el CUIT %1, búsquelo en la lista para modificarlo."_s.arg(cuit)});
}

void revisarNumeros(const Ficha &ficha, std::vector<Falta> &faltas) {
    constexpr double maximo = 100;
    for (const Numero &n : numericos) {
        const QString texto = (ficha.*n.campo).trimmed();
        if (texto.isEmpty()) continue;
        const QString nombre = QString::fromUtf8(n.nombre);
        if (!numeros::esNumerico(texto)) {
            faltas.push_back({L(n.columna), nombre + u" no es un número, corríjalo."_s});
            continue;
        }
        const double valor = numeros::aNumero(texto);
        if (valor < 0 || valor > maximo)
            faltas.push_back({L(n.columna), nombre + u" debe estar entre 0 y 100, corríjalo."_s});
    }
}

QString loQueFaltaEn(AppContext &ctx, const Ventaja &v) {
    static const QRegularExpression comienzoDePosicion(
        u"^\\d{1,4}(\\.(\\d{1,2}(\\.(\\d{1,2}(\\.(\\d{1,3}[A-Z]?)?)?)?)?)?)?$"_s,
        QRegularExpression::CaseInsensitiveOption);
    const QString idventaja = v.idventaja.trimmed();
    if (idventaja.isEmpty()) return u"Falta el código de la ventaja"_s;
    if (!existe(ctx, u"SYSTABLAS"_s,
                "select count(*) as cant from ventajas where id = "_L1 + TextoEnComillas(idventaja)))
        return u"La ventaja %1 no existe"_s.arg(idventaja);
    const QString subreg = v.idSubRegimen.trimmed();
    if (!subreg.isEmpty() &&
        !existe(ctx, u"SYSTABLAS"_s,
                "select count(*) as cant from sta where id = "_L1 + TextoEnComillas(subreg)))
        return u"El subrégimen %1 no existe"_s.arg(subreg);
    const QString ncm = v.NCM.trimmed();
    if (!ncm.isEmpty() && !comienzoDePosicion.match(ncm).hasMatch())
        return u"%1 no es el comienzo de una posición"_s.arg(ncm);
    return {};
}

void revisarVentajas(AppContext &ctx, const std::vector<Ventaja> &ventajas, std::vector<Falta> &faltas) {
    for (std::size_t i = 0; i < ventajas.size(); ++i) {
        const int fila = static_cast<int>(i);
        QString que = loQueFaltaEn(ctx, ventajas[i]);
        const auto aqui = ventajas.begin() + fila;
        if (que.isEmpty() && std::find(ventajas.begin(), aqui, ventajas[i]) != aqui)
            que = u"La ventaja %1 está repetida"_s.arg(ventajas[i].idventaja);
        if (!que.isEmpty())
            faltas.push_back(
                {u"ventajas"_s,
                 u"%1 en la fila %2 de ventajas, corríjala o quítela."_s.arg(que, QString::number(fila + 1)),
                 fila});
    }
}

/// The columns of a record, apart from the tax number.
void poner(Escritura &escritura, const Ficha &ficha) {
    for (const Texto &t : textos) escritura.texto(t.columna, (ficha.*t.campo).trimmed());
    for (const Numero &n : numericos) escritura.numero(n.columna, (ficha.*n.campo).trimmed());
    for (const Bandera &b : banderas) escritura.marca(b.columna, ficha.*b.campo);
}

std::vector<Ventaja> leerVentajas(AppContext &ctx, const QString &cuit) {
    std::vector<Ventaja> ventajas;
    Recordset rs;
    Consultar(ctx, personal, "select * from VentajasRel where cuit = "_L1 + EnComillas(cuit), rs);
    for (; !rs.Eof(); rs.MoveNext())
        ventajas.push_back({rs.Texto(u"idSubRegimen"), rs.Texto(u"NCM"), rs.Texto(u"idventaja")});
    return ventajas;
}

void guardarVentajas(AppContext &ctx, const QString &cuit, const std::vector<Ventaja> &ventajas) {
    // Untouched rows are not written again: a statement that fails halfway would lose them.
    if (leerVentajas(ctx, cuit) == ventajas) return;
    Ejecutar(ctx, personal, "delete from VentajasRel where cuit = "_L1 + EnComillas(cuit));
    for (const Ventaja &v : ventajas)
        Ejecutar(ctx, personal,
                 Escritura(ctx, personal)
                     .codigo("cuit", cuit)
                     .texto("idSubRegimen", v.idSubRegimen.trimmed())
                     .texto("NCM", v.NCM.trimmed())
                     .texto("idventaja", v.idventaja.trimmed())
                     .insertar(u"VentajasRel"_s));
}

QStringList columnaDe(const std::vector<Fila> &filas, QString Fila::*campo) {
    QStringList columna;
    columna.reserve(static_cast<qsizetype>(filas.size()));
    for (const Fila &f : filas) columna << f.*campo;
    return columna;
}

}  // namespace

bool PareceCorreo(const QString &texto) {
    static const QRegularExpression forma(u"^[^@\\s]+@[^@\\s]+\\.[^@\\s]+$"_s);
    return forma.match(texto).hasMatch();
}

std::vector<Fila> Listar(AppContext &ctx, Orden orden) {
    std::vector<Fila> filas;
    Recordset rs;
    Consultar(ctx, personal,
              "select cuit,nombre,domicilio,email from clientes order by "_L1 +
                  (orden == Orden::Nombre ? "nombre"_L1 : "cuit"_L1),
              rs);
    filas.reserve(static_cast<std::size_t>(rs.RecordCount()));
    for (; !rs.Eof(); rs.MoveNext())
        filas.push_back({rs.Texto(u"cuit"), rs.Texto(u"nombre"), rs.Texto(u"domicilio"), rs.Texto(u"email")});
    return filas;
}

QStringList Nombres(const std::vector<Fila> &filas) {
    return columnaDe(filas, &Fila::nombre);
}

QStringList Cuits(const std::vector<Fila> &filas) {
    return columnaDe(filas, &Fila::cuit);
}

std::optional<Ficha> Leer(AppContext &ctx, const QString &cuit) {
    Recordset rs;
    if (!Consultar(ctx, personal, "select * from clientes where cuit = "_L1 + EnComillas(cuit), rs))
        return {};
    Ficha ficha;
    ficha.cuit = rs.Texto(u"cuit");
    for (const Texto &t : textos) ficha.*t.campo = rs.Texto(QString(L(t.columna)));
    for (const Numero &n : numericos) {
        QString texto = numeros::aTexto(rs.Numero(QString(L(n.columna))));
        ficha.*n.campo = ReemplazarSeparadorDecimal(texto, ctx.SeparadorDecimal);
    }
    for (const Bandera &b : banderas)
        ficha.*b.campo = rs.Texto(QString(L(b.columna))).trimmed().toUpper() == "S"_L1;
    ficha.ventajas = leerVentajas(ctx, cuit);
    return ficha;
}

Ficha Nueva() {
    Ficha ficha;
    for (const Numero &n : numericos) ficha.*n.campo = u"0"_s;
    return ficha;
}

QString LimpiarCuit(const QString &texto) {
    QString limpio = texto;
    limpio.removeIf([](QChar c) { return c.isSpace() || c == u'-' || c == u'.' || c == u'/'; });
    return limpio;
}

std::vector<Falta> Revisar(AppContext &ctx, const Ficha &ficha, bool nuevo) {
    std::vector<Falta> faltas;
    if (nuevo) revisarCuit(ctx, LimpiarCuit(ficha.cuit), faltas);
    if (ficha.nombre.trimmed().isEmpty())
        faltas.push_back({u"nombre"_s, u"Falta el nombre del cliente, ingréselo para guardar."_s});
    const QString email = ficha.email.trimmed();
    if (!email.isEmpty() && !PareceCorreo(email))
        faltas.push_back({u"email"_s, u"El correo %1 no es una dirección válida, corríjalo."_s.arg(email)});
    revisarNumeros(ficha, faltas);
    revisarVentajas(ctx, ficha.ventajas, faltas);
    return faltas;
}

std::optional<Falta> Guardar(AppContext &ctx, const Ficha &ficha, bool nuevo) {
    const std::vector<Falta> faltas = Revisar(ctx, ficha, nuevo);
    if (!faltas.empty()) {
        ctx.dialogos.advertir(faltas.front().mensaje, u"Clientes"_s);
        return faltas.front();
    }
    const QString cuit = nuevo ? LimpiarCuit(ficha.cuit) : ficha.cuit;
    const QString tabla = u"clientes"_s;
    Escritura escritura(ctx, personal);
    if (nuevo) escritura.codigo("cuit", cuit);
    poner(escritura, ficha);
    // A client without the advantages that were keyed could not be added again.
    Transaccion juntos(ctx.conexion(personal));
    Ejecutar(
        ctx, personal,
        nuevo ? escritura.insertar(tabla) : escritura.actualizar(tabla, "cuit = "_L1 + EnComillas(cuit)));
    guardarVentajas(ctx, cuit, ficha.ventajas);
    juntos.Confirmar();
    return {};
}

int OperacionesQueLoUsan(AppContext &ctx, const QString &cuit) {
    Recordset rs;
    Consultar(ctx, u"INTERNOS"_s,
              "select count(*) as cant from caratula where cuitcliente = "_L1 + EnComillas(cuit), rs);
    return rs.Eof() ? 0 : static_cast<int>(rs.Numero(u"cant"));
}

bool Borrar(AppContext &ctx, const QString &cuit) {
    const auto ficha = Leer(ctx, cuit);
    if (!ficha) return false;
    const int usos = OperacionesQueLoUsan(ctx, cuit);
    const QString cual = u"el cliente %1 (CUIT %2)"_s.arg(ficha->nombre.trimmed(), cuit);
    Pregunta pregunta;
    pregunta.titulo = u"Eliminar cliente"_s;
    pregunta.porDefectoNo = true;
    if (usos == 0) {
        pregunta.texto = u"¿Elimina %1 y sus ventajas?"_s.arg(cual);
    } else {
        pregunta.icono = Icono::Exclamacion;
        pregunta.texto =
            u"%1 está usado por %2.\r\nSi lo elimina, %3 sin los datos de su cliente.\r\n¿Lo "
            "elimina de todos modos?"_s.arg(
                QLatin1Char('E') + cual.mid(1),
                usos == 1 ? u"una operación"_s : u"%1 operaciones"_s.arg(usos),
                usos == 1 ? u"esa operación queda"_s : u"esas operaciones quedan"_s);
    }
    if (!ctx.dialogos.preguntar(pregunta)) return false;
    Ejecutar(ctx, personal, "delete from VentajasRel where cuit = "_L1 + EnComillas(cuit));
    Ejecutar(ctx, personal, "delete from clientes where cuit = "_L1 + EnComillas(cuit));
    return true;
}

ParteElegida &Elegido() {
    static ParteElegida elegido;
    return elegido;
}

std::vector<VentajaDeCatalogo> CatalogoDeVentajas(AppContext &ctx) {
    std::vector<VentajaDeCatalogo> catalogo;
    Recordset rs;
    Consultar(ctx, u"SYSTABLAS"_s, u"select id,descripcion from ventajas order by descripcion"_s, rs);
    for (; !rs.Eof(); rs.MoveNext()) catalogo.push_back({rs.Texto(u"id"), rs.Texto(u"descripcion")});
    return catalogo;
}

QString getVentajasListado(AppContext &ctx) {
    const std::vector<VentajaDeCatalogo> catalogo = CatalogoDeVentajas(ctx);
    QStringList vistas;
    for (const VentajaDeCatalogo &v : catalogo) vistas << v.descripcion + " ("_L1 + v.id + QLatin1Char(')');
    const int cual = ctx.dialogos.elegir({u"Ventajas"_s, vistas, -1, Eleccion::Tipo::Codigos});
    if (cual < 0 || cual >= vistas.size()) return {};
    return catalogo[static_cast<std::size_t>(cual)].id.trimmed().toUpper();
}

}  // namespace ClientBook
