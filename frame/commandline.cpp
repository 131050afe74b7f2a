#include "frame/commandline.h"

#include <QCommandLineParser>
#include <algorithm>
#include <cstdio>

#include "frame/base/texts.h"
#include "frame/version.h"

using namespace Qt::StringLiterals;

namespace consola {

namespace {

constexpr qsizetype anchoDeAyuda = 80;

const QString ayuda = u"ayuda"_s;
const QString version = u"version"_s;

QString t(const char *texto) {
    return QString::fromUtf8(texto);
}

/// The options that every program has.
const std::vector<Opcion> &propias() {
    static const std::vector<Opcion> todas{
        {.nombre = "ayuda", .texto = "Muestra esta ayuda (también -h y --help)."},
        {.nombre = "version", .texto = "Muestra la versión y la fecha en que se generó (también -v)."},
    };
    return todas;
}

QStringList nombresDe(const Opcion &o) {
    if (t(o.nombre) == ayuda) return {ayuda, u"h"_s, u"help"_s};
    if (t(o.nombre) == version) return {version, u"v"_s};
    return {t(o.nombre)};
}

const Comando *buscarComando(const Programa &p, const QString &nombre) {
    const auto c = std::find_if(p.comandos.begin(), p.comandos.end(),
                                [&nombre](const Comando &uno) { return t(uno.nombre) == nombre; });
    return c == p.comandos.end() ? nullptr : &*c;
}

/// The second words of the commands that begin with `palabra`: "catalogo" of "catalogo cargar" and others.
QStringList accionesDe(const Programa &p, const QString &palabra) {
    QStringList acciones;
    const QString cabeza = palabra + QLatin1Char(' ');
    for (const Comando &c : p.comandos)
        if (t(c.nombre).startsWith(cabeza)) acciones << t(c.nombre).mid(cabeza.size());
    return acciones;
}

/// Takes the words of the command off the arguments: one, or two where commands begin with the first.
QString tomarComando(const Programa &p, QStringList &resto) {
    QString nombre = resto.takeFirst();
    if (!resto.isEmpty() && !accionesDe(p, nombre).isEmpty()) nombre += QLatin1Char(' ') + resto.takeFirst();
    return nombre;
}

QString comandoDesconocido(const Programa &p, const QString &nombre) {
    const QString palabra = nombre.section(QLatin1Char(' '), 0, 0);
    const QStringList acciones = accionesDe(p, palabra);
    if (acciones.isEmpty()) return u"No existe el comando \"%1\""_s.arg(nombre);
    return palabra == nombre ? u"Falta qué hacer con %1 (%2)"_s.arg(nombre, acciones.join(", "_L1))
                             : u"No existe el comando \"%1\" (%2)"_s.arg(nombre, acciones.join(", "_L1));
}

bool contiene(const std::vector<Opcion> &opciones, const Opcion &buscada) {
    return std::any_of(opciones.begin(), opciones.end(),
                       [&buscada](const Opcion &o) { return t(o.nombre) == t(buscada.nombre); });
}

/// The program's options and the command's own.
std::vector<Opcion> opcionesDe(const Programa &p, const Comando *c) {
    std::vector<Opcion> todas = p.opciones;
    if (c != nullptr) todas.insert(todas.end(), c->opciones.begin(), c->opciones.end());
    return todas;
}

QString conGuiones(const QString &nombre) {
    return (nombre.size() == 1 ? u"-"_s : u"--"_s) + nombre;
}

QString nombreDe(const Argumento &a) {
    const QString nombre = a.repetible ? t(a.nombre) + u"..."_s : t(a.nombre);
    return a.optativo ? u"["_s + nombre + u"]"_s : nombre;
}

QString conValor(const Opcion &o) {
    return conGuiones(t(o.nombre)) + (*o.valor == '\0' ? QString() : u" "_s + t(o.valor));
}

// The helps.

/// `texto` behind a margin of `margen` blanks, its lines cut at words.
QString enLineas(const QString &texto, qsizetype margen) {
    QString salida;
    QString linea;
    for (const QString &palabra : texto.split(QLatin1Char(' '))) {
        if (!linea.isEmpty() && margen + linea.size() + 1 + palabra.size() > anchoDeAyuda) {
            salida += linea + u"\n"_s + QString(margen, QLatin1Char(' '));
            linea.clear();
        }
        linea += (linea.isEmpty() ? QString() : u" "_s) + palabra;
    }
    return salida + linea + QLatin1Char('\n');
}

using Renglon = std::pair<QString, QString>;

/// A titled table of names and what they mean; nothing for an empty one.
QString seccion(const QString &titulo, const std::vector<Renglon> &renglones) {
    if (renglones.empty()) return {};
    qsizetype ancho = 0;
    for (const auto &[nombre, texto] : renglones) ancho = std::max(ancho, nombre.size());
    QString salida = u"\n"_s + titulo + u":\n"_s;
    for (const auto &[nombre, texto] : renglones)
        salida += u"  "_s + nombre.leftJustified(ancho + 2) + enLineas(texto, ancho + 4);
    return salida;
}

QString seccionDeOpciones(const QString &titulo, const std::vector<Opcion> &opciones) {
    std::vector<Renglon> renglones;
    renglones.reserve(opciones.size());
    for (const Opcion &o : opciones)
        renglones.emplace_back(conValor(o), t(o.texto) + (o.obligatoria ? u" Obligatoria."_s : QString()) +
                                                (o.repetible ? u" Puede repetirse."_s : QString()));
    return seccion(titulo, renglones);
}

/// The options of which one has to come, as they are written, in their order.
QStringList delGrupo(const std::vector<Opcion> &opciones, const char *grupo) {
    QStringList suyas;
    for (const Opcion &o : opciones)
        if (t(o.grupo) == t(grupo)) suyas << conValor(o);
    return suyas;
}

/// Whether an option is the first one of a group.
bool abreGrupo(const std::vector<Opcion> &opciones, const Opcion &o) {
    return *o.grupo != '\0' && delGrupo(opciones, o.grupo).front() == conValor(o);
}

/// The options that have to come, each behind a blank.
QString obligatorias(const std::vector<Opcion> &opciones) {
    QString todas;
    for (const Opcion &o : opciones) {
        if (o.obligatoria) todas += u" "_s + conValor(o);
        if (abreGrupo(opciones, o)) todas += u" (%1)"_s.arg(delGrupo(opciones, o.grupo).join(u" | "_s));
    }
    return todas;
}

/// What has to come, in the order it is written: "--perfil ARCHIVO armar CLAVE [opciones]", a command's own
/// behind its arguments.
QString usoDe(const Programa &p, const Comando *c) {
    QString uso = t(p.nombre) + obligatorias(p.opciones);
    if (c != nullptr) {
        uso += u" "_s + t(c->nombre);
        for (const Argumento &a : c->argumentos) uso += u" "_s + nombreDe(a);
        uso += obligatorias(c->opciones);
    } else if (!p.comandos.empty()) {
        uso += u" COMANDO"_s;
    }
    return uso + u" [opciones]"_s;
}

QString ayudaDelPrograma(const Programa &p) {
    std::vector<Renglon> comandos;
    comandos.reserve(p.comandos.size());
    for (const Comando &c : p.comandos) {
        QString nombre = t(c.nombre);
        for (const Argumento &a : c.argumentos) nombre += u" "_s + nombreDe(a);
        comandos.emplace_back(nombre, t(c.texto));
    }
    QString salida = enLineas(p.texto, 0) + u"\nUso: %1\n"_s.arg(usoDe(p, nullptr));
    salida += seccion(u"Comandos"_s, comandos) + seccionDeOpciones(u"Opciones"_s, p.opciones);
    salida += seccionDeOpciones(u"Sobre el programa"_s, propias());
    if (!p.comandos.empty())
        salida += u"\nCada comando tiene su ayuda: %1 COMANDO --ayuda\n"_s.arg(t(p.nombre));
    if (*p.nota != '\0') salida += u"\n"_s + enLineas(t(p.nota), 0);
    return salida;
}

QString ayudaDelComando(const Programa &p, const Comando &c) {
    std::vector<Renglon> argumentos;
    argumentos.reserve(c.argumentos.size());
    for (const Argumento &a : c.argumentos) argumentos.emplace_back(nombreDe(a), t(a.texto));
    return enLineas(t(c.texto), 0) + u"\nUso: %1\n"_s.arg(usoDe(p, &c)) +
           seccion(u"Argumentos"_s, argumentos) + seccionDeOpciones(u"Opciones del comando"_s, c.opciones) +
           seccionDeOpciones(u"Opciones"_s, p.opciones);
}

QString textoDeVersion(const Programa &p) {
    return u"%1 %2 (%3)\n"_s.arg(t(p.nombre), TextoDeVersion(), TextoFechaZendra());
}

// The checks. Each answers what is wrong, without the end of the sentence; empty when nothing is.

/// Which of the two things that the parser finds fault with besides an unknown name.
QString defectoDeValor(const std::vector<Opcion> &opciones, const QStringList &argumentos) {
    for (const Opcion &o : opciones)
        for (const QString &nombre : nombresDe(o))
            if (*o.valor == '\0' &&
                std::any_of(argumentos.begin(), argumentos.end(), [&nombre](const QString &a) {
                    return a.startsWith(conGuiones(nombre) + u"="_s);
                }))
                return u"La opción %1 no lleva valor"_s.arg(conGuiones(nombre));
    return u"A la opción %1 le falta su valor"_s.arg(argumentos.last());
}

/// Fills `pedido` and looks at each option alone.
QString revisarOpciones(const Programa &p, const Comando *c, const QCommandLineParser &leida,
                        Pedido &pedido) {
    for (const Opcion &o : opcionesDe(p, c)) {
        const QString nombre = conGuiones(t(o.nombre));
        if (!leida.isSet(t(o.nombre))) {
            if (o.obligatoria) return u"Falta %1"_s.arg(conValor(o));
            continue;
        }
        const QStringList valores = leida.values(t(o.nombre));
        pedido.opciones.insert(t(o.nombre), valores);
        if (*o.valor == '\0') continue;
        if (valores.size() > 1 && !o.repetible) return u"La opción %1 va una sola vez"_s.arg(nombre);
        for (const QString &valor : valores) {
            if (valor.trimmed().isEmpty()) return u"A la opción %1 le falta su valor"_s.arg(nombre);
            const QString defecto = o.control == nullptr ? QString() : o.control(valor);
            if (!defecto.isEmpty()) return u"%1 no sirve: %2"_s.arg(nombre, defecto);
        }
    }
    return {};
}

/// Of each group one option has to come, and one alone.
QString revisarGrupos(const std::vector<Opcion> &opciones, const QCommandLineParser &leida) {
    for (const Opcion &primera : opciones) {
        if (!abreGrupo(opciones, primera)) continue;
        QStringList dadas;
        for (const Opcion &o : opciones)
            if (t(o.grupo) == t(primera.grupo) && leida.isSet(t(o.nombre))) dadas << conGuiones(t(o.nombre));
        if (dadas.isEmpty()) return u"Falta "_s + delGrupo(opciones, primera.grupo).join(u" o "_s);
        if (dadas.size() > 1) return u"Las opciones %1 no van juntas"_s.arg(dadas.join(u" y "_s));
    }
    return {};
}

/// Looks at the options as they stand together.
QString revisarCompania(const Programa &p, const Comando *c, const QCommandLineParser &leida) {
    for (const Opcion &o : opcionesDe(p, c)) {
        if (!leida.isSet(t(o.nombre))) continue;
        if (*o.soloCon != '\0' && !leida.isSet(t(o.soloCon)))
            return u"La opción --%1 sólo sirve con --%2"_s.arg(t(o.nombre), t(o.soloCon));
        const QStringList excluidas = t(o.excluyeA).split(u' ', Qt::SkipEmptyParts);
        for (const QString &otra : excluidas)
            if (leida.isSet(otra)) return u"Las opciones --%1 y --%2 no van juntas"_s.arg(t(o.nombre), otra);
    }
    const std::vector<Opcion> suyas = opcionesDe(p, c);
    if (QString defecto = revisarGrupos(suyas, leida); !defecto.isEmpty()) return defecto;
    for (const Comando &otro : p.comandos)
        for (const Opcion &o : otro.opciones)
            if (leida.isSet(t(o.nombre)) && !contiene(suyas, o))
                return u"La opción --%1 es del comando %2"_s.arg(t(o.nombre), t(otro.nombre));
    return {};
}

QString revisarArgumentos(const Programa &p, const Comando *c, const QStringList &dados) {
    const std::vector<Argumento> ninguno;
    const std::vector<Argumento> &esperados = c == nullptr ? ninguno : c->argumentos;
    const auto esperado = [](const Argumento &a) { return u"%1 (%2)"_s.arg(nombreDe(a), t(a.texto)); };
    const auto esperadas = static_cast<qsizetype>(esperados.size());
    const bool repite = !esperados.empty() && esperados.back().repetible;
    const qsizetype cuantos = repite ? std::max(esperadas, dados.size()) : esperadas;
    for (qsizetype i = 0; i < cuantos; ++i) {
        const Argumento &a = esperados[static_cast<std::size_t>(std::min(i, esperadas - 1))];
        if (dados.value(i).isEmpty() && a.optativo) continue;
        if (dados.value(i).isEmpty()) return u"Falta %1"_s.arg(esperado(a));
        const QString defecto = a.control == nullptr ? QString() : a.control(dados[i]);
        if (!defecto.isEmpty()) return u"%1 no sirve: %2"_s.arg(t(a.nombre), defecto);
    }
    if (dados.size() <= cuantos) return c == nullptr || c->control == nullptr ? QString() : c->control(dados);
    QStringList lleva;
    for (const Argumento &a : esperados) lleva << esperado(a);
    const QString quien = c == nullptr ? t(p.nombre) : u"el comando "_s + t(c->nombre);
    return u"Sobra \"%1\": %2 %3"_s.arg(
        dados[esperadas], quien,
        lleva.isEmpty() ? u"no lleva argumentos"_s : u"lleva sólo "_s + lleva.join(u" y "_s));
}

}  // namespace

Pedido Leer(const Programa &programa, const QStringList &argumentos) {
    std::vector<Opcion> todas = opcionesDe(programa, nullptr);
    for (const Comando &c : programa.comandos)
        for (const Opcion &o : c.opciones)
            if (!contiene(todas, o)) todas.push_back(o);
    todas.insert(todas.end(), propias().begin(), propias().end());
    QCommandLineParser leida;
    for (const Opcion &o : todas) leida.addOption({nombresDe(o), QString(), t(o.valor)});
    const bool entendida = leida.parse(argumentos);

    QStringList resto = leida.positionalArguments();
    for (QString &uno : resto) uno = uno.trimmed();
    Pedido pedido;
    const Comando *comando = nullptr;
    QString defecto;
    if (!programa.comandos.empty() && !resto.isEmpty()) {
        pedido.comando = tomarComando(programa, resto);
        comando = buscarComando(programa, pedido.comando);
    }
    if (!entendida) {
        const QStringList desconocidas = leida.unknownOptionNames();
        defecto = desconocidas.isEmpty() ? defectoDeValor(todas, argumentos)
                                         : u"No existe la opción "_s + conGuiones(desconocidas.front());
    } else if (comando == nullptr && !pedido.comando.isEmpty()) {
        defecto = comandoDesconocido(programa, pedido.comando);
    } else if (leida.isSet(ayuda)) {
        pedido.que = Que::Mostrar;
        pedido.texto = comando == nullptr ? ayudaDelPrograma(programa) : ayudaDelComando(programa, *comando);
        return pedido;
    } else if (leida.isSet(version)) {
        pedido.que = Que::Mostrar;
        pedido.texto = textoDeVersion(programa);
        return pedido;
    }
    pedido.argumentos = resto;
    if (defecto.isEmpty()) defecto = revisarOpciones(programa, comando, leida, pedido);
    if (defecto.isEmpty() && comando == nullptr && !programa.comandos.empty())
        defecto = u"Falta el comando"_s;
    if (defecto.isEmpty()) defecto = revisarCompania(programa, comando, leida);
    if (defecto.isEmpty()) defecto = revisarArgumentos(programa, comando, resto);
    if (defecto.isEmpty()) {
        pedido.que = Que::Trabajar;
    } else {
        pedido.texto = u"%1; vea %2%3 --ayuda."_s.arg(
            defecto, t(programa.nombre), comando == nullptr ? QString() : u" "_s + pedido.comando);
    }
    return pedido;
}

int Negar(const QString &sentencia) {
    std::fprintf(stderr, "%s\n", EnUnRenglon(sentencia).toUtf8().constData());
    return malUso;
}

int Contestar(const Pedido &pedido) {
    if (pedido.que == Que::Trabajar) return 0;
    const bool mal = pedido.que == Que::MalUso;
    if (mal) return Negar(pedido.texto);
    std::fprintf(stdout, "%s", pedido.texto.toUtf8().constData());
    return 0;
}

}  // namespace consola
