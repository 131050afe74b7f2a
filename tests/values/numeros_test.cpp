#include "frame/base/numbers.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <array>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>

#include "tests/support/redondeo.h"

using namespace Qt::StringLiterals;

namespace {

using numeros::Format;

/// The rule written the long way: the digits as the C library writes them (which the server does too),
/// rounded one by one by hand, read back by Qt.
double redondearALaLarga(double valor, int decimales) {
    std::array<char, 32> buf{};
    std::snprintf(buf.data(), buf.size(), "%.14e", std::fabs(valor));
    const QByteArray cientifico(buf.data());
    const qsizetype e = cientifico.indexOf('e');
    QByteArray cifras = cientifico.left(e);
    cifras.remove(1, 1);
    int enteras = cientifico.mid(e + 1).toInt() + 1;
    while (enteras < 1) {
        cifras.prepend('0');
        ++enteras;
    }
    while (cifras.size() < enteras + decimales + 1) cifras.append('0');
    const bool sube = cifras[enteras + decimales] >= '5';
    cifras.truncate(enteras + decimales);
    if (sube) {
        qsizetype i = cifras.size() - 1;
        while (i >= 0 && cifras[i] == '9') cifras[i--] = '0';
        if (i >= 0) {
            cifras[i] = static_cast<char>(cifras[i] + 1);
        } else {
            cifras.prepend('1');
            ++enteras;
        }
    }
    cifras.insert(enteras, '.');
    const double leido = cifras.toDouble();
    return valor < 0 && leido != 0 ? -leido : leido;
}

TEST(Redondear, FollowsTheTable) {
    for (const CasoDeRedondeo &c : CasosDeRedondeo()) {
        const double r = numeros::redondear(c.valor, c.decimales);
        EXPECT_EQ(r, c.esperado) << QByteArray::number(c.valor, 'g', 17).constData() << " to " << c.decimales;
        EXPECT_FALSE(std::signbit(r) && r == 0);
    }
}

TEST(Redondear, TheShortWayAgreesWithTheLongOneOnManyValues) {
    std::mt19937_64 azar(20261121);
    std::uniform_real_distribution<double> mantisa(0, 1);
    std::uniform_int_distribution<int> escala(-7, 14);
    std::uniform_int_distribution<int> lugares(0, 6);
    std::uniform_int_distribution<int> forma(0, 3);
    for (int i = 0; i < 400000; ++i) {
        double v = mantisa(azar) * std::pow(10.0, escala(azar));
        const int n = lugares(azar);
        // Values beside a half are where the two could part.
        const double paso = std::pow(10.0, -n);
        const int f = forma(azar);
        if (f == 1) v = (std::floor(v / paso) + 0.5) * paso;
        if (f == 2) v = std::nextafter((std::floor(v / paso) + 0.5) * paso, 0);
        if (f == 3) v = -v;
        ASSERT_EQ(numeros::redondear(v, n), redondearALaLarga(v, n))
            << QByteArray::number(v, 'g', 17).constData() << " to " << n;
    }
}

TEST(Redondear, WhatIsNoNumberStaysWhatItIs) {
    EXPECT_TRUE(std::isnan(numeros::redondear(std::numeric_limits<double>::quiet_NaN(), 2)));
    EXPECT_TRUE(std::isinf(numeros::redondear(std::numeric_limits<double>::infinity(), 2)));
    EXPECT_EQ(numeros::redondear(std::numeric_limits<double>::max(), 2), std::numeric_limits<double>::max());
    EXPECT_EQ(numeros::redondear(std::numeric_limits<double>::denorm_min(), 2), 0);
    EXPECT_EQ(numeros::redondear(1.5, std::numeric_limits<int>::max()), 1.5);
    EXPECT_EQ(numeros::redondear(1.5, -400), 0);
}

struct CasoDeFormato {
    double valor;
    const char16_t *mascara;
    const char *conPunto;
};

const std::vector<CasoDeFormato> &formatos() {
    static const std::vector<CasoDeFormato> casos{
        {0, u"00.00", "00.00"},
        {0.5, u"00.00", "00.50"},
        {-0.5, u"00.00", "-00.50"},   // the sign stands first
        {-0.004, u"00.00", "00.00"},  // what rounds to zero has no sign
        {-0.005, u"00.00", "-00.01"},
        {1.005, u"00.00", "01.01"},
        {12.345, u"00.00", "12.35"},
        {123.456, u"00.00", "123.46"},  // more integer digits than the mask are kept
        {99.995, u"00.00", "100.00"},
        {1234567.891, u"00.00", "1234567.89"},
        {7, u"00.000", "07.000"},
        {1.23456, u"00.000", "01.235"},
        {1050.75, u"0.000000", "1050.750000"},
        {0.0000005, u"0.000000", "0.000001"},
        {3, u"0", "3"},
        {2.5, u"0", "3"},
        {0.4, u"0", "0"},
        {72, u"000", "072"},
        {4, u"000", "004"},
        {1234, u"000", "1234"},
        {-7, u"000", "-007"},
        {12, u"0000", "0012"},
        {1.5, u"000000.000000", "000001.500000"},
        {1e15, u"00.00", "1000000000000000.00"},
        {123456789012345678.0, u"00.00", "123456789012346000.00"},  // 15 digits, then zeros
    };
    return casos;
}

TEST(Format, FollowsTheTableWithAPointAndWithAComma) {
    for (const CasoDeFormato &c : formatos()) {
        EXPECT_EQ(Format(c.valor, c.mascara, u'.').toStdString(), c.conPunto);
        EXPECT_EQ(Format(c.valor, c.mascara, u','), QString::fromLatin1(c.conPunto).replace(u'.', u','));
    }
}

TEST(Format, TheShortWayWritesWhatTheDigitsSay) {
    std::mt19937_64 azar(20261123);
    std::uniform_real_distribution<double> mantisa(-1, 1);
    std::uniform_int_distribution<int> escala(-6, 9);
    for (int i = 0; i < 100000; ++i) {
        const double v = numeros::redondear(mantisa(azar) * std::pow(10.0, escala(azar)), 3);
        // Already rounded: what is left is the C library's own writing.
        std::array<char, 48> buf{};
        std::snprintf(buf.data(), buf.size(), v < 0 ? "%07.3f" : "%06.3f", v);
        ASSERT_EQ(Format(v, u"00.000", u'.').toStdString(), buf.data());
    }
    EXPECT_EQ(Format(-1.5, QString(60, u'0') + ".00"_L1, u'.').toStdString(),
              "-" + std::string(59, '0') + "1.50");
    EXPECT_EQ(Format(1.5, u"0."_s + QString(20, u'0'), u'.').toStdString(), "1.50000000000000000000");
}

TEST(Format, AMaskWithoutIntegerDigitsShowsNoneBelowOne) {
    EXPECT_EQ(Format(0.25, u".00", u'.'), u".25"_s);
    EXPECT_EQ(Format(3.25, u".00", u'.'), u"3.25"_s);
}

TEST(Format, WhatIsNoNumberDoesNotCrash) {
    EXPECT_EQ(Format(std::numeric_limits<double>::quiet_NaN(), u"00.00", u'.'), u"NaN"_s);
    EXPECT_EQ(Format(std::numeric_limits<double>::infinity(), u"00.00", u'.'), u"∞"_s);
    EXPECT_EQ(Format(-std::numeric_limits<double>::infinity(), u"00.00", u'.'), u"-∞"_s);
    EXPECT_GT(Format(std::numeric_limits<double>::max(), u"00.00", u'.').size(), 300);
    EXPECT_EQ(Format(std::numeric_limits<double>::denorm_min(), u"0", u'.').toStdString(), "0");
}

TEST(Format, ATextIsReadInEitherSeparatorAndAnotherTextComesBack) {
    for (const char16_t separador : {u'.', u','}) {
        const QString esperado = u"12"_s + QChar(separador) + u"350"_s;
        EXPECT_EQ(Format(u"12.35"_s, u"00.000", separador), esperado);
        EXPECT_EQ(Format(u"12,35"_s, u"00.000", separador), esperado);
        EXPECT_EQ(Format(u"abc"_s, u"00.00", separador), u"abc"_s);
        EXPECT_EQ(Format(QString(), u"00.00", separador), QString());
    }
}

TEST(Format, WhatItWritesReadsBackAsTheRoundedValue) {
    std::mt19937_64 azar(7);
    std::uniform_real_distribution<double> valores(-1e7, 1e7);
    for (const char16_t separador : {u'.', u','}) {
        for (int i = 0; i < 20000; ++i) {
            const double v = valores(azar);
            ASSERT_EQ(numeros::aNumero(Format(v, u"00.000", separador)), numeros::redondear(v, 3)) << v;
        }
    }
}

TEST(Format, WithoutLossItShowsEveryDigitThatTheMaskWouldCut) {
    EXPECT_EQ(numeros::FormatSinPerdida(118.4, u"00.00000", u','), u"118,40000"_s);
    EXPECT_EQ(numeros::FormatSinPerdida(0.1234567, u"00.00000", u','), u"0,1234567"_s);
    EXPECT_EQ(numeros::FormatSinPerdida(-2, u"00.00", u'.'), u"-02.00"_s);
    EXPECT_EQ(numeros::FormatSinPerdida(0.125, u"00.00", u'.'), u"0.125"_s);
}

TEST(EsNumerico, ATextThatReadsAsOneNumber) {
    for (const char16_t *si : {u"0", u"12", u"-12", u"+12", u"12.5", u"12,5", u".5", u",5", u"5.", u"1e5",
                               u"1E-5", u"1.5e+3", u" 12 ", u"007", u"\t3"})
        EXPECT_TRUE(numeros::esNumerico(si)) << QString::fromUtf16(si).toStdString();
    for (const char16_t *no :
         {u"",   u" ",  u"abc", u"1.2.3", u"1,2,3", u"1.234,56", u"12a",  u"a12", u"-",   u"+",   u".", u",",
          u"e5", u"1e", u"1e+", u"1 2",   u"--1",   u"$5",       u"0x10", u"1/2", u"nan", u"inf", u"٣"})
        EXPECT_FALSE(numeros::esNumerico(no)) << QString::fromUtf16(no).toStdString();
}

TEST(ANumero, TheNumberATextSays) {
    EXPECT_EQ(numeros::aNumero(u"12.5"), 12.5);
    EXPECT_EQ(numeros::aNumero(u"12,5"), 12.5);
    EXPECT_EQ(numeros::aNumero(u"-,5"), -0.5);
    EXPECT_EQ(numeros::aNumero(u"+7"), 7);
    EXPECT_EQ(numeros::aNumero(u"5."), 5);
    EXPECT_EQ(numeros::aNumero(u" 1e3 "), 1000);
    EXPECT_EQ(numeros::aNumero(u"abc"), 0);
    EXPECT_EQ(numeros::aNumero(u""), 0);
    EXPECT_EQ(numeros::aNumero(u"1e999"), 0);  // out of range: no amount
}

TEST(ATexto, TheShortestTextWithoutExponent) {
    const std::vector<std::pair<double, const char *>> casos{
        {0, "0"},
        {-0.0, "0"},
        {1, "1"},
        {12.5, "12.5"},
        {0.1, "0.1"},
        {-0.25, "-0.25"},
        {0.1 + 0.2, "0.3"},
        {100, "100"},
        {1e14, "100000000000000"},
        {1e15, "1000000000000000"},
        {1e20, "100000000000000000000"},
        {123456789012345678.0, "123456789012346000"},
        {0.00001, "0.00001"},
        {0.0000015, "0.0000015"},
        {1e-10, "0.0000000001"},
        {1.0 / 3.0, "0.333333333333333"},
        {1234567.125, "1234567.125"},
    };
    for (const auto &[valor, texto] : casos) EXPECT_EQ(numeros::aTexto(valor).toStdString(), texto);
}

TEST(ATexto, ReadsBackToFifteenDigits) {
    std::mt19937_64 azar(11);
    std::uniform_real_distribution<double> mantisa(-1, 1);
    std::uniform_int_distribution<int> escala(-12, 18);
    for (int i = 0; i < 100000; ++i) {
        const double v = mantisa(azar) * std::pow(10.0, escala(azar));
        const QString texto = numeros::aTexto(v);
        ASSERT_FALSE(texto.contains(u'e')) << texto.toStdString();
        std::array<char, 32> quince{};
        std::snprintf(quince.data(), quince.size(), "%.15g", v);
        ASSERT_EQ(texto.toDouble(), QByteArray(quince.data()).toDouble()) << texto.toStdString();
    }
}

TEST(PorcentajeRedondeado, AnAmountToTheCent) {
    EXPECT_EQ(numeros::PorcentajeRedondeado(1000, 21), 210);
    EXPECT_EQ(numeros::PorcentajeRedondeado(100.5, 1), 1.01);    // 1.005
    EXPECT_EQ(numeros::PorcentajeRedondeado(33.33, 10.5), 3.5);  // 3.49965
    EXPECT_EQ(numeros::PorcentajeRedondeado(-100.5, 1), -1.01);
    EXPECT_EQ(numeros::PorcentajeRedondeado(0, 21), 0);
}

}  // namespace
