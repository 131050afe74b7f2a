// The run of one case, by the modules alone.

#include "tests/casos/caso.h"

#include <QDir>
#include <QFile>
#include <algorithm>

#include "assembly/run.h"
#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/config.h"
#include "frame/escritura.h"
#include "header/automotive.h"
#include "liquidation/review.h"
#include "tests/support/tienda.h"
#include "upgrade/schema.h"
#include "upgrade/upgrade.h"

using namespace Qt::StringLiterals;

namespace casos {

namespace {

const QString clave = u"CASO"_s;

QString nombreDe(const QFileInfo &archivo) {
    return archivo.completeBaseName().toLower();
}

QFileInfoList planillasDe(const QString &carpeta) {
    return QDir(carpeta).entryInfoList({u"*.csv"_s}, QDir::Files, QDir::Name);
}

/// Every sheet of the folder that is no sheet of ours into the table of its name.
void cargarTablas(const Tienda &tienda, const QString &carpeta, QStringList &defectos) {
    for (const QFileInfo &archivo : planillasDe(carpeta)) {
        const QString tabla = nombreDe(archivo);
        if (tabla == "opciones"_L1 || tabla == "respuestas"_L1) continue;
        const esquema::Tabla *destino = esquema::buscarTabla(tabla);
        QStringList porDefecto;
        if (destino != nullptr && destino->columna(u"interno") != nullptr)
            porDefecto << "interno="_L1 + clave;
        const actualizacion::ResultadoCsv r =
            actualizacion::CargarCsv(tienda.perfil(), tabla, archivo.filePath(), false, porDefecto);
        if (!r.ok) defectos << archivo.fileName() + ": "_L1 + r.error;
        for (const QString &aviso : r.avisos) defectos << archivo.fileName() + ", "_L1 + aviso;
    }
}

/// What the dashboard tells the assembly, and what an earlier visit to the operation left answered.
struct Tablero {
    OpcionesDeArmado armado;
    QString aec;
};

/// Configuration keys go by their own road, through the file; the dashboard's options go to the run.
Tablero leerOpciones(AppContext &ctx, const Planilla &opciones, QStringList &defectos) {
    static const QStringList delArchivo{u"IVARIN"_s,
                                        u"IVARNI"_s,
                                        u"ARMARITEM"_s,
                                        u"VrySbtDup"_s,
                                        u"NOCALCLIQU"_s,
                                        u"FlgIdArtTOOtros"_s,
                                        u"QUINDELRAF"_s,
                                        u"DIEMCHINA-PrefPorc"_s,
                                        u"DIEMCHINA-IndMaxArancel"_s};
    Tablero tablero;
    QString texto = u"[GENERAL]\n"_s;
    for (std::size_t n = 0; n < opciones.filas.size(); ++n) {
        const QString nombre = opciones.celda(n, u"opcion");
        const QString valor = opciones.celda(n, u"valor");
        if (delArchivo.contains(nombre))
            texto += nombre + '='_L1 + valor + '\n'_L1;
        else if (nombre == "ChMulta"_L1)
            tablero.armado.ChMulta = ctx.CalcularMulta = valor == "S"_L1;
        else if (nombre == "CALCULAR_SERVICIO_DIGITALIZACION"_L1)
            tablero.armado.chkCalcularServicioDigitalizacion = valor == "S"_L1;
        else if (nombre == "DJAI_USAR_DESCRIPCION"_L1 && valor == "MARIA"_L1)
            tablero.armado.modo = ModoDescripcion::Maria;
        else if (nombre == "DJAI_USAR_DESCRIPCION"_L1 && valor == "CATALOGO"_L1)
            tablero.armado.modo = ModoDescripcion::Catalogo;
        else if (nombre == "DJAI_USAR_DESCRIPCION"_L1 && valor == "NO"_L1)
            tablero.armado.sinDescripcion = true;
        else if (nombre == "AEC"_L1)
            tablero.aec = valor;
        else
            defectos << u"opciones.csv: no hay ninguna opción "_s + nombre + " con el valor "_L1 + valor;
    }
    QFile archivo(ctx.ProgramFolder + "ZENDRA.ini"_L1);
    if (!archivo.open(QIODevice::WriteOnly) || archivo.write(texto.toUtf8()) < 0)
        defectos << archivo.errorString();
    archivo.close();
    CargarConfiguracion(ctx);
    tablero.armado.ARMARITEM = ctx.opciones.ARMARITEM;
    if (!tablero.aec.isEmpty()) GuardarAEC(ctx, clave, tablero.aec);
    return tablero;
}

/// The user of a case: answers in order what he has an answer for, and keeps what he was told.
class Usuario {
 public:
    Usuario(Planilla respuestas, QStringList &defectos)
        : respuestas_(std::move(respuestas)), defectos_(defectos) {}

    Dialogos dialogos() {
        Dialogos d;
        d.mensaje = [this](const Mensaje &m) { mensajes_ << m.texto; };
        d.informe = [this](const Informe &i) { mensajes_ << i.texto; };
        d.preguntar = [this](const Pregunta &p) { return responder(p.texto).respuesta == "Si"_L1; };
        d.pedirTexto = [this](const Entrada &e) { return std::optional(responder(e.texto).respuesta); };
        d.preguntarConOpciones = [this](const PreguntaConOpciones &p) {
            const Respuesta r = responder(p.texto);
            return RespuestaConOpciones{r.respuesta == "Si"_L1,
                                        std::max(0, static_cast<int>(p.opciones.indexOf(r.opcion)))};
        };
        return d;
    }

    /// Answers nobody asked for, and words other than the expected ones.
    void controlar(const Planilla &esperados) {
        for (; siguiente_ < respuestas_.filas.size(); ++siguiente_)
            defectos_ << u"nadie preguntó \"%1\""_s.arg(respuestas_.celda(siguiente_, u"pregunta"));
        for (std::size_t n = 0; n < esperados.filas.size(); ++n) {
            const QString texto = esperados.celda(n, u"texto");
            const auto i = static_cast<qsizetype>(n);
            if (i >= mensajes_.size())
                defectos_ << u"falta el mensaje \"%1\""_s.arg(texto);
            else if (!mensajes_.at(i).contains(texto))
                defectos_ << u"mensaje %1: se esperaba \"%2\", salió \"%3\""_s.arg(n + 1).arg(
                    texto, mensajes_.at(i));
        }
        for (auto i = static_cast<qsizetype>(esperados.filas.size()); i < mensajes_.size(); ++i)
            defectos_ << u"mensaje inesperado: \"%1\""_s.arg(mensajes_.at(i));
    }

 private:
    struct Respuesta {
        QString respuesta, opcion;
    };
    Respuesta responder(const QString &texto) {
        if (siguiente_ >= respuestas_.filas.size() ||
            !texto.contains(respuestas_.celda(siguiente_, u"pregunta"))) {
            defectos_ << u"pregunta sin respuesta: \"%1\""_s.arg(texto);
            return {};
        }
        const std::size_t n = siguiente_++;
        return {respuestas_.celda(n, u"respuesta"), respuestas_.celda(n, u"opcion")};
    }

    Planilla respuestas_;
    QStringList &defectos_;
    QStringList mensajes_;
    std::size_t siguiente_ = 0;
};

/// What the item screen would write: the row of the keys takes the other columns of the sheet.
void aplicarCambios(AppContext &ctx, const QString &tabla, const Planilla &cambios, QStringList &defectos) {
    const esquema::Tabla *destino = esquema::buscarTabla(tabla);
    const QStringList claves = ClavesDe(tabla);
    for (std::size_t n = 0; n < cambios.filas.size(); ++n) {
        Escritura e(ctx);
        QString donde = "interno = "_L1 + EnComillas(clave);
        for (const QString &columna : cambios.columnas) {
            const QString valor = cambios.celda(n, columna);
            const esquema::Columna *c = destino == nullptr ? nullptr : destino->columna(columna);
            if (c == nullptr) {
                defectos << u"cambios/%1.csv: no hay ninguna columna %2"_s.arg(tabla, columna);
                return;
            }
            const bool esNumero = c->tipo == esquema::Tipo::Numero || c->tipo == esquema::Tipo::Generado;
            if (claves.contains(columna))
                donde += " and "_L1 + columna + " = "_L1 + (esNumero ? valor : EnComillas(valor));
            else if (esNumero)
                e.numero(c->nombre.toLatin1().constData(), valor);
            else
                e.texto(c->nombre.toLatin1().constData(), valor);
        }
        if (Ejecutar(ctx, u"INTERNOS"_s, e.actualizar(tabla, donde)) != 1)
            defectos << u"cambios/%1.csv: no hay una fila %2"_s.arg(tabla, donde);
    }
}

std::vector<FilaDelStore> leerTabla(AppContext &ctx, const QString &tabla, const QStringList &columnas) {
    std::vector<FilaDelStore> filas;
    Recordset rs;
    for (Consultar(ctx, u"INTERNOS"_s,
                   "select * from "_L1 + tabla + " where interno = "_L1 + EnComillas(clave), rs);
         !rs.Eof(); rs.MoveNext()) {
        FilaDelStore fila;
        for (const QString &columna : columnas)
            fila.valores.insert(columna, EsNull(rs.Fields(columna).Value));
        fila.enSilencio = (tabla == "itemliq"_L1 && rs.Numero(u"total") == 0) ||
                          (tabla == "item"_L1 && rs.Numero(u"id") == 0);
        filas.push_back(std::move(fila));
    }
    return filas;
}

/// The run's result and the sums by payment, as rows of a table of their own.
std::vector<FilaDelStore> totalesDe(const AppContext &ctx, const ResultadoRecalculo &r) {
    const auto fila = [](const QString &dato, const QString &valor) {
        return FilaDelStore{{{u"dato"_s, dato}, {u"valor"_s, valor}}, dato == "armado"_L1};
    };
    const auto importe = [](double valor) { return numeros::aTexto(numeros::redondear(valor, 8)); };
    return {fila(u"armado"_s, ctx.ChequeoArmado), fila(u"P"_s, importe(r.totalP)),
            fila(u"G"_s, importe(r.totalG)), fila(u"C"_s, importe(r.totalC))};
}

void comparar(AppContext &ctx, const QString &carpeta, const ResultadoRecalculo &r, QStringList &defectos) {
    const QFileInfoList planillas = planillasDe(carpeta);
    if (planillas.isEmpty()) defectos << u"el caso no espera nada: falta la carpeta esperado"_s;
    for (const QFileInfo &archivo : planillas) {
        const QString tabla = nombreDe(archivo);
        if (tabla == "mensajes"_L1) continue;
        const Planilla esperado = LeerPlanilla(archivo.filePath(), defectos);
        const esquema::Tabla *origen = esquema::buscarTabla(tabla);
        if (tabla == "totales"_L1) {
            defectos << Comparar(tabla, esperado, totalesDe(ctx, r));
            continue;
        }
        bool hay = origen != nullptr;
        for (const QString &columna : esperado.columnas) hay = hay && origen->columna(columna) != nullptr;
        if (hay)
            defectos << Comparar(tabla, esperado, leerTabla(ctx, tabla, esperado.columnas));
        else
            defectos << u"esperado/%1: no hay esa tabla, o no tiene una de sus columnas (%2)"_s.arg(
                archivo.fileName(), esperado.columnas.join(", "_L1));
    }
}

/// What a recalculation may change, a text a row.
QStringList escritoPorElRecalculo(AppContext &ctx) {
    QStringList filas;
    for (const QString &tabla : {u"itemliq"_s, u"liqcero"_s, u"item"_s, u"itemventaja"_s}) {
        Recordset rs;
        for (Consultar(ctx, u"INTERNOS"_s,
                       "select * from "_L1 + tabla + " where interno = "_L1 + EnComillas(clave), rs);
             !rs.Eof(); rs.MoveNext()) {
            QStringList celdas{tabla};
            for (int c = 0; c < rs.columnas(); ++c) celdas << EsNull(rs.Fields(c).Value);
            filas << celdas.join('|'_L1);
        }
    }
    return filas;
}

/// The first run that is written may still be moved by the second, which goes over what was written; from
/// there on nothing moves.
void comprobarReposo(AppContext &ctx, QStringList &defectos) {
    ctx.dialogos = {};
    const auto recalcular = [&ctx] {
        ctx.LiquidacionPendiente = true;
        ClassLiquidacion calculo(ctx, clave);
        RecalcularOperacion(ctx, clave, calculo);
        return escritoPorElRecalculo(ctx);
    };
    const QStringList segunda = recalcular();
    const QStringList tercera = recalcular();
    if (segunda.size() != tercera.size()) defectos << u"el tercer recálculo cambia cuántas filas hay"_s;
    for (qsizetype n = 0; n < std::min(segunda.size(), tercera.size()); ++n)
        if (segunda.at(n) != tercera.at(n))
            defectos << u"el tercer recálculo cambia %1 por %2"_s.arg(segunda.at(n), tercera.at(n));
}

}  // namespace

QStringList CorrerCaso(const QString &carpeta, const QString &store) {
    QStringList defectos;
    Registro registro;
    const Tienda tienda(store);
    cargarTablas(tienda, QFileInfo(carpeta).path() + "/comun"_L1, defectos);
    cargarTablas(tienda, carpeta, defectos);
    const std::unique_ptr<AppContext> ctx = tienda.contexto(registro);
    fijarContexto(ctx.get());
    Usuario usuario(LeerPlanilla(carpeta + "/respuestas.csv"_L1, defectos), defectos);
    ctx->dialogos = usuario.dialogos();

    const Tablero tablero =
        leerOpciones(*ctx, LeerPlanilla(carpeta + "/opciones.csv"_L1, defectos), defectos);
    ctx->ChequeoArmado = u"SI"_s;
    if (!Generar(*ctx, clave, tablero.armado)) defectos << u"el armado terminó en una falla"_s;
    ResultadoRecalculo r;
    if (ctx->ChequeoArmado == "SI"_L1) {
        for (const QFileInfo &archivo : planillasDe(carpeta + "/cambios"_L1))
            aplicarCambios(*ctx, nombreDe(archivo), LeerPlanilla(archivo.filePath(), defectos), defectos);
        ctx->LiquidacionPendiente = true;
        ClassLiquidacion calculo(*ctx, clave);
        r = RecalcularOperacion(*ctx, clave, calculo);
    }
    comparar(*ctx, carpeta + "/esperado"_L1, r, defectos);
    usuario.controlar(LeerPlanilla(carpeta + "/esperado/mensajes.csv"_L1, defectos));
    if (ctx->ChequeoArmado == "SI"_L1) comprobarReposo(*ctx, defectos);
    fijarContexto(nullptr);
    return defectos;
}

}  // namespace casos
