#include "editors/formatting_page.h"
#include "editors/sample_format.h"

#include <gtest/gtest.h>

#include <string>

namespace veldrane {
namespace {

struct Sample
{
    std::string_view Text;
    std::string_view Format;
    std::string_view Shown;
};

constexpr Sample kNumbers[] = {
    {"1234.5", "General Number", "1234.5"},
    {"-007.50", "General Number", "-7.5"},
    {".25", "General Number", "0.25"},
    {"1234.5", "Currency", "$1,234.50"},
    {"-1234.567", "Currency", "($1,234.57)"},
    {"0", "Currency", "$0.00"},
    {"1234.567", "Fixed", "1234.57"},
    {"0.5", "Fixed", "0.50"},
    {"1234567.891", "Standard", "1,234,567.89"},
    {"-5", "Standard", "-5.00"},
    {"0.1234", "Percent", "12.34%"},
    {"2", "Percent", "200.00%"},
    {"12345", "Scientific", "1.23E+04"},
    {"0.00999", "Scientific", "9.99E-03"},
    {"9.996", "Scientific", "1.00E+01"},
    {"0", "Scientific", "0.00E+00"},
    {"3", "Yes/No", "Yes"},
    {"0", "Yes/No", "No"},
    {"True", "True/False", "True"},
    {"false", "True/False", "False"},
    {"-1", "On/Off", "On"},
    {"0", "On/Off", "Off"},
    {"1234.5", "0", "1235"},
    {"2.5", "0", "3"},
    {"0.4", "0", "0"},
    {"1.005", "0.00", "1.01"},
    {"0.995", "0.00", "1.00"},
    {"99.999", "0.00", "100.00"},
    {"1234567", "#,##0", "1,234,567"},
    {"12", "#,##0", "12"},
    {"1234.5", "#,##0.00", "1,234.50"},
    {"-1234.5", "#,##0.00;(#,##0.00)", "(1,234.50)"},
    {"-1234.5", "$#,##0.00;($#,##0.00)", "($1,234.50)"},
    {"0.256", "0%", "26%"},
    {"0.256", "0.00%", "25.60%"},
    {"1234", "0.00E+00", "1.23E+03"},
    {"42", "00000", "00042"},
    {"0.5", "#.##", ".5"},
    {"5", "#.##", "5."},
    {"0", "0;-0;(0)", "(0)"},
    {"1,234", "0.0", "1234.0"},
    {"5", "currency", "$5.00"},
};

constexpr Sample kDates[] = {
    {"2004-02-01", "General Date", "2/1/2004"},
    {"13:05:09", "General Date", "1:05:09 PM"},
    {"2004-02-01 13:05", "General Date", "2/1/2004 1:05:00 PM"},
    {"2/1/2004", "Long Date", "Sunday, February 1, 2004"},
    {"2004-02-01", "Medium Date", "01-Feb-04"},
    {"2004-02-01", "Short Date", "2/1/2004"},
    {"2004-02-01 0:05", "Long Time", "12:05:00 AM"},
    {"12:05", "Medium Time", "12:05 PM"},
    {"9:05:59 pm", "Short Time", "21:05"},
    {"2004-12-31", "m/d/yyyy", "12/31/2004"},
    {"2004-02-01", "mm/dd/yyyy", "02/01/2004"},
    {"2004-02-01", "dd/mm/yyyy", "01/02/2004"},
    {"2/1/2004", "yyyy-mm-dd", "2004-02-01"},
    {"2004-02-01", "dd-mmm-yyyy", "01-Feb-2004"},
    {"2004-02-29", "dddd, mmmm d, yyyy", "Sunday, February 29, 2004"},
    {"2004-02-01", "ddd", "Sun"},
    {"9:05", "h:nn AM/PM", "9:05 AM"},
    {"9:05", "hh:nn:ss", "09:05:00"},
    {"9:05", "hh:mm", "09:05"},
    {"2004-02-01 9:05", "yyyy-mm-dd hh:nn:ss", "2004-02-01 09:05:00"},
    {"9:05", "yyyy", "1899"},
};

constexpr Sample kTexts[] = {
    {"Straße 5", ">", "STRAßE 5"},
    {"ABC", "<", "abc"},
    {"123456789", "@@@-@@-@@@@", "123-45-6789"},
    {"56789", "@@@-@@-@@@@", "   - 5-6789"},
    {"5551234567", "(@@@) @@@-@@@@", "(555) 123-4567"},
    {"1234567890", "&&&&&-&&&&", "123456-7890"},
    {"67890", "&&&&&-&&&&", "6-7890"},
    {"äb", "@@@@", "  äb"},
    {"äb", "!@@@@", "äb  "},
    {"abcdef", "!@@-@@", "ab-cdef"},
    {"abc", ">@@@@", " ABC"},
};

constexpr Sample kAsTyped[] = {
    {"abc", "", "abc"},
    {"abc", "0.00", "abc"},
    {"abc", "Currency", "abc"},
    {"abc", "Long Date", "abc"},
    {"1.2.3", "0", "1.2.3"},
    {"-", "0", "-"},
    {"2004-02-30", "Long Date", "2004-02-30"},
    {"2004-02-01 25:00", "General Date", "2004-02-01 25:00"},
    {"2004-02-01 1:00", "0.00", "2004-02-01 1:00"},
    {"1234", "\"No. \"0", "1234"},
    {"1234", "0,", "1234"},
    {"1234", "0;0;0;0", "1234"},
    {"2004-02-01", "q", "2004-02-01"},
    {"2004-02-01", "ddddd", "2004-02-01"},
    {"2004-02-01", "yyy", "2004-02-01"},
    {"1234", "Long Date", "1234"},
    {"13:00 PM", "Long Time", "13:00 PM"},
};

TEST(SampleFormat, ShowsNumbers)
{
    for (const Sample& sample : kNumbers)
        EXPECT_EQ(FormattedSample(sample.Text, sample.Format), sample.Shown) << sample.Text << " as " << sample.Format;
}

TEST(SampleFormat, ShowsDates)
{
    for (const Sample& sample : kDates)
        EXPECT_EQ(FormattedSample(sample.Text, sample.Format), sample.Shown) << sample.Text << " as " << sample.Format;
}

TEST(SampleFormat, ShowsTexts)
{
    for (const Sample& sample : kTexts)
        EXPECT_EQ(FormattedSample(sample.Text, sample.Format), sample.Shown) << sample.Text << " as " << sample.Format;
}

TEST(SampleFormat, ShowsAsTypedWhatItDoesNotKnow)
{
    for (const Sample& sample : kAsTyped)
        EXPECT_EQ(FormattedSample(sample.Text, sample.Format), sample.Shown) << sample.Text << " as " << sample.Format;
}

TEST(SampleFormat, KnowsWhatItOffers)
{
    const auto known = [](std::string_view type, std::string_view format) {
        if (type == "Date")
            return FormattedDate("2004-02-01 13:05", format).has_value();
        if (type == "String")
            return FormattedText("abc", format).has_value();
        return FormattedNumber("1234.5", format).has_value() || FormattedDate("2004-02-01 13:05", format).has_value();
    };
    for (const char* type :
         {"String", "Byte", "Integer", "Long", "Single", "Double", "Currency", "Boolean", "Date", "Variant"}) {
        EXPECT_FALSE(SampleFormats(type).empty()) << type;
        for (const std::string_view format : SampleFormats(type))
            EXPECT_TRUE(known(type, format)) << type << ": " << format;
    }
    for (const char* type : {"Object", "Class", "Collection", "Customer", ""})
        EXPECT_TRUE(SampleFormats(type).empty()) << type;
}

TEST(FormattingPageTest, ShowsNoneAtFirst)
{
    TTCProperty property;
    property.FormatStringOnGet = "0.00";
    FormattingPage page(property);
    EXPECT_EQ(page.lblSampleOutput(), "<none>");
    page.txtInput = "5";
    EXPECT_EQ(page.lblSampleOutput(), "5.00");
    page.txtInput = "";
    EXPECT_EQ(page.lblSampleOutput(), "<none>");
}

TEST(FormattingPageTest, ShowsTheFormatInHand)
{
    TTCProperty property;
    property.FormatStringOnLet = "0.0";
    FormattingPage page(property);
    page.txtInput = "5";
    EXPECT_EQ(page.lblSampleOutput(), "5.0");
    page.cmbFormatGet_Change("0.00");
    EXPECT_EQ(page.lblSampleOutput(), "5.00");
    page.cmbFormatLet_Change("000");
    EXPECT_EQ(page.lblSampleOutput(), "005");
    EXPECT_EQ(page.cmbFormatGet(), "0.00");
    page.cmbFormatLet_Change("");
    EXPECT_EQ(page.lblSampleOutput(), "5");
}

} // namespace
} // namespace veldrane
