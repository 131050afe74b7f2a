// The page of a quote: its templates, its tags, and texts that look like markup.

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QXmlStreamReader>
#include <cerrno>

#include "header/comments.h"
#include "outputs/quotemail.h"
#include "outputs/quotepage.h"
#include "outputs/quotepdf.h"
#include "tests/quote/presupuestos.h"

using namespace Qt::StringLiterals;

namespace {

const QString marcaSinComentario = u"<!--###seccioncc###-->"_s;
const QString filaVacia = u"<tr class=\"texto\" ></tr>"_s;

/// Every tag that is told, by the template that has it.
const std::pair<const char *, const char *> rotulosPorSeccion[] = {
    {"seccion00.cpl", "clidir clinom desnom fechapres intnro seccioncc"},
    {"seccion01.cpl", "refer00 valorrefer00"},
    {"seccion02.cpl",
     "ajuded ajuinc bimp bimppeso biva fletvlr fobvlr pasflet pasfob passeg segvlr tipocambio"},
    {"seccion03.cpl", "gstdlr gstdsc gstpesr pgc"},
    {"seccion04.cpl", "gsttotpes gstotdol totcobdol totcobpes totgardol totgarpes"},
    {"seccion05.cpl", "opdol opdsc oppes"},
    {"seccion06.cpl", "cuenta optotdol optotpes subtotal totadu totalgeneral totdol totpes"},
    {"seccioncc.cpl", "comentarios"},
};

class QuotePage : public Presupuestos {
 protected:
    QString pagina() { return PaginaDelPresupuesto(*ctx, cargar(), diaDelPresupuesto); }
    /// The page in which the templates are nothing but these.
    QString paginaDe(const QHash<QString, QByteArray> &secciones) {
        for (const auto &[seccion, rotulos] : rotulosPorSeccion)
            escribirSeccion(QLatin1String(seccion), secciones.value(QLatin1String(seccion)));
        return pagina();
    }
    void escribirSeccion(const QString &nombre, const QByteArray &texto) {
        QFile f(ctx->ProgramFolder + "seccion/"_L1 + nombre);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(texto);
    }
    void comentar(const char *texto) {
        ASSERT_TRUE(GrabarComentario(*ctx, operacionPresupuestada, QString::fromUtf8(texto)));
    }
};
EN_AMBOS_STORES(QuotePage);

TEST_P(QuotePage, TheTemplatesHaveEveryTagAndNoOther) {
    const QRegularExpression rotulo(u"###([a-z0-9]+)###"_s);
    for (const auto &[seccion, esperados] : rotulosPorSeccion) {
        QFile f(CarpetaDeFuentes() + "/seccion/"_L1 + QLatin1String(seccion));
        ASSERT_TRUE(f.open(QIODevice::ReadOnly)) << seccion;
        const QString texto = QString::fromUtf8(f.readAll());
        QStringList hallados;
        for (auto i = rotulo.globalMatch(texto); i.hasNext();) hallados << i.next().captured(1);
        hallados.removeDuplicates();
        hallados.sort();
        QStringList todos = QString::fromLatin1(esperados).split(u' ');
        todos.sort();
        EXPECT_EQ(hallados, todos) << seccion;
    }
}

// With templates of nothing but their tags the whole page is what the sections say, in their order.
TEST_P(QuotePage, EverySectionIsFilledInItsOrder) {
    ponerConceptos();
    comentar("uno\r\ndos\ntres");
    Presupuesto p = cargar();
    p.txtAcuenta = u"250,5"_s;
    for (const auto &[seccion, rotulos] : rotulosPorSeccion) {
        QByteArray texto = QByteArray(seccion).mid(7, 2) + ':';
        const QStringList nombres = QString::fromLatin1(rotulos).split(u' ');
        for (const QString &nombre : nombres)
            texto +=
                nombre == "seccioncc"_L1 ? " <!--###seccioncc###-->" : " ###" + nombre.toLatin1() + "###";
        escribirSeccion(QLatin1String(seccion), texto + '\n');
    }
    EXPECT_EQ(PaginaDelPresupuesto(*ctx, p, diaDelPresupuesto).toStdString(),
              "00: Juan B. Justo 4820 HIDRAULICA DEL PLATA S.A. FERREYRA HORACIO " +
                  AsuntoDelPresupuesto(diaDelPresupuesto).mid(12).toStdString() +
                  " OP 1 cc: uno<br>dos<br>tres\n\n"
                  "01: BUQUE CAP SAN MARTIN\n"
                  "02: 10,50 22,00 4510,96 4510960,00 342,10 2350,00 1500,26 01,000000 01,085000 01,270000 "
                  "410,00 1000,000000\n"
                  "03: 100,00 DERECHOS 100000,00 P\n"
                  "03: 20,50 TASA ESTADISTICA 20500,00 P\n"
                  "03: 50,25 IVA 50250,00 G\n"
                  "03: 30,00 REINTEGRO 30000,00 C\n"
                  "03: 10,00 ARANCEL 10000,00 \n"
                  "04: 120500,00 120,50 30,00 30000,00 50,25 50250,00\n"
                  "05: 01,50 HONORARIOS 1500,50\n"
                  "05: 12,25 FLETE INTERNO 12250,00\n"
                  "06: 250,50 12,25 1500,50 134250,50 120500,00 134000,00 12,25 1500,50\n");
}

TEST_P(QuotePage, AQuoteWithNoCommentKeepsTheMark) {
    EXPECT_EQ(pagina().count(marcaSinComentario), 1);
    comentar("");
    EXPECT_EQ(pagina().count(marcaSinComentario), 1);
    comentar("Canal verde");
    EXPECT_EQ(pagina().count(marcaSinComentario), 0);
    EXPECT_TRUE(pagina().contains(u"Canal verde"_s));
}

TEST_P(QuotePage, AnAmountOnAccountOfNothingWritesADashAndTheTotalEqualsTheSubtotal) {
    const QHash<QString, QByteArray> solo{
        {u"seccion06.cpl"_s, "[###cuenta###|###subtotal###|###totalgeneral###]"}};
    for (const char *aCuenta : {"0", "null"}) {
        ejecutar(u"update caratula set factura6 = %1 where interno = 'OP 1'"_s.arg(QLatin1String(aCuenta)));
        EXPECT_TRUE(paginaDe(solo).endsWith(u"[-|120500,00|120500,00]"_s));
    }
    ejecutar(u"update caratula set factura6 = 0.5 where interno = 'OP 1'"_s);
    EXPECT_TRUE(paginaDe(solo).endsWith(u"[00,50|120500,00|120499,50]"_s));
}

TEST_P(QuotePage, WithoutLinesTheRowsOfNothingStand) {
    ejecutar(u"delete from liqcero"_s);
    const QString html = pagina();
    EXPECT_EQ(html.count(filaVacia), 2) << "references and duties";
    EXPECT_EQ(html.count(u"<tr class=\"texto\" >Sin Datos...</tr>"_s), 1);
    EXPECT_FALSE(html.contains(u"###"_s + u"gst"_s));
}

TEST_P(QuotePage, TextsOfUsersAreNoMarkup) {
    const QString texto = u"<b>A & 'B' \"C\"</b>"_s;
    const QString mostrado = u"&lt;b&gt;A &amp; &#39;B&#39; &quot;C&quot;&lt;/b&gt;"_s;
    ejecutar(u"update clientes set nombre = '<b>A & ''B'' \"C\"</b>', domicilio = '<i>'"_s, u"PERSONAL"_s);
    ejecutar(u"update liqcero set concepto = '<script>' where idconcepto = '010'"_s);
    AgregarGasto(*ctx, operacionPresupuestada, texto, u"1"_s, true);
    registro.textos = {texto};
    ASSERT_TRUE(AgregarReferencia(*ctx, operacionPresupuestada, u"</table>"_s));
    comentar("a < b\n<!--###seccioncc###-->");
    const QString html = pagina();
    EXPECT_EQ(html.count(mostrado), 3);
    for (const QString &sano : {u"&lt;script&gt;"_s, u"&lt;/table&gt;"_s, u"&lt;i&gt;"_s, u"a &lt; b<br>"_s})
        EXPECT_TRUE(html.contains(sano)) << sano.toStdString();
    EXPECT_FALSE(html.contains(u"<script"_s));
}

TEST_P(QuotePage, AValueThatLooksLikeATagStaysText) {
    ejecutar(u"update liqcero set concepto = '###pgc###' where idconcepto = '010'"_s);
    ejecutar(u"update clientes set nombre = '###desnom###', domicilio = '###intnro'"_s, u"PERSONAL"_s);
    comentar("###comentarios### ###fobvlr###");
    const QString html = pagina();
    for (const QString &entero :
         {u"###pgc###"_s, u"###desnom###"_s, u"###intnro"_s, u"###comentarios### ###fobvlr###"_s})
        EXPECT_EQ(html.count(entero), 1) << entero.toStdString();
}

TEST_P(QuotePage, ATagThatASectionDoesNotHaveStays) {
    EXPECT_TRUE(paginaDe({{u"seccion06.cpl"_s, "###fobvlr### ###subtotal###"}})
                    .endsWith(u"###fobvlr### 120500,00"_s));
}

TEST_P(QuotePage, EveryCharacterIsInTheBytesWhateverEncodingIsDeclared) {
    ejecutar(u"update clientes set nombre = 'Ñandú € 漢 😀'"_s, u"PERSONAL"_s);
    const QString html = pagina();
    EXPECT_TRUE(html.contains(u"&#209;and&#250; &#8364; &#28450; &#128512;"_s));
    for (const QChar c : html) ASSERT_LT(c.unicode(), 0x7f);
    EXPECT_TRUE(html.contains(u"charset=iso-8859-1"_s));
}

TEST_P(QuotePage, TemplatesMayBeInEitherEncoding) {
    EXPECT_TRUE(paginaDe({{u"seccion06.cpl"_s, "Dep\xc3\xb3sito"}}).endsWith(u"Dep&#243;sito"_s));
    EXPECT_TRUE(paginaDe({{u"seccion06.cpl"_s, "Dep\xf3sito"}}).endsWith(u"Dep&#243;sito"_s));
}

TEST_P(QuotePage, ItIsWellFormedWithAndWithoutLines) {
    const auto defecto = [this] {
        QXmlStreamReader xml(pagina().replace(u"<br>"_s, u"<br/>"_s));
        while (!xml.atEnd()) xml.readNext();
        return xml.errorString().toStdString() + " " + std::to_string(xml.lineNumber());
    };
    const auto bien = [](const std::string &d) { return d.starts_with(" "); };
    EXPECT_TRUE(bien(defecto())) << defecto();
    ponerConceptos();
    comentar("uno\ndos <");
    GuardarLineas(*ctx, 3);
    EXPECT_TRUE(bien(defecto())) << defecto();
    ejecutar(u"delete from liqcero"_s);
    EXPECT_TRUE(bien(defecto())) << defecto();
}

TEST_P(QuotePage, ItAsksForNothingFromOutside) {
    ponerConceptos();
    const QString html = pagina();
    for (const char *ajeno : {"http:", "https:", "<script", "<img", "<link", "url(", "@import", "src="})
        EXPECT_FALSE(html.contains(QLatin1String(ajeno), Qt::CaseInsensitive)) << ajeno;
}

TEST_P(QuotePage, BlankLinesStandAheadOfWhatIsSeen) {
    EXPECT_FALSE(pagina().contains(u"<body><br>"_s));
    GuardarLineas(*ctx, 3);
    EXPECT_TRUE(pagina().contains(u"<body><br><br><br>\n"_s));
    EXPECT_TRUE(paginaDe({{u"seccion00.cpl"_s, "A"}}).startsWith(u"<br><br><br>A"_s));
}

TEST_P(QuotePage, AMissingTemplateStopsItWithTheSystemsWords) {
    const QString falta = ctx->ProgramFolder + "seccion/seccion03.cpl"_L1;
    ASSERT_TRUE(QFile::remove(falta));
    const QString archivo = ctx->ProgramFolder + "salida.html"_L1;
    try {
        LP_ArmarRep(*ctx, cargar(), archivo);
        ADD_FAILURE() << "it went on";
    } catch (const Falla &e) {
        EXPECT_EQ(e.descripcion, u"No se pudo leer %1: %2"_s.arg(falta, qt_error_string(ENOENT)));
    }
    EXPECT_FALSE(QFile::exists(archivo)) << "half a page is no page";
}

TEST_P(QuotePage, TheTemplateOfCommentsIsReadForOneAlone) {
    ASSERT_TRUE(QFile::remove(ctx->ProgramFolder + "seccion/seccioncc.cpl"_L1));
    EXPECT_FALSE(pagina().isEmpty());
    comentar("x");
    EXPECT_THROW(pagina(), Falla);
}

TEST_P(QuotePage, TheTextSaysTheSame) {
    ponerConceptos();
    comentar("uno < dos");
    Presupuesto p = cargar();
    p.txtAcuenta = u"250,5"_s;
    const QString t = TextoDelPresupuesto(*ctx, p, diaDelPresupuesto);
    for (const QString &linea :
         {u"Cliente: HIDRAULICA DEL PLATA S.A.\n"_s, u"BUQUE: CAP SAN MARTIN\n"_s, u"uno < dos\n"_s,
          u"FOB                                            01,085000         1500,26\n"_s,
          u"DERECHOS (P)                                   100000,00          100,00\n"_s,
          u"ARANCEL                                         10000,00           10,00\n"_s,
          u"HONORARIOS                                       1500,50           01,50\n"_s,
          u"A cuenta                                          250,50\n"_s,
          u"Total general                                  134000,00\n"_s})
        EXPECT_TRUE(t.contains(linea)) << linea.toStdString() << t.toStdString();
}

}  // namespace
