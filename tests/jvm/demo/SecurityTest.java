package demo;

import static org.junit.jupiter.api.Assertions.assertEquals;

import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.CsvSource;

class SecurityTest {
    @ParameterizedTest
    @CsvSource({
        "open, [ESS]",
        "open, ''",
        "open, [WPS][ESS]",
        "open, [OWE-TRANS][ESS]",
        "WEP, [WEP][ESS]",
        "WPA-PSK, [WPA-PSK-TKIP][ESS]",
        "WPA-Enterprise, [WPA-EAP-TKIP][ESS]",
        "WPA2-PSK, [WPA2-PSK-CCMP][ESS]",
        "WPA2-PSK, [RSN-PSK-CCMP][MESH]",
        "WPA2-PSK, [WPA2-PSK+FT/PSK+PSK-SHA256-CCMP][WPS][ESS]",
        "WPA2-PSK, [WPA2-FT/PSK-CCMP-preauth][ESS]",
        "WPA2-Enterprise, [WPA2-EAP-CCMP][ESS]",
        "WPA2-Enterprise, [WPA2-EAP-SHA256-CCMP][ESS]",
        "WPA3-SAE, [WPA2-SAE-CCMP][ESS]",
        "WPA3-Enterprise, [WPA2-EAP-SUITE-B-192-GCMP-256][ESS]",
        "OWE, [WPA2-OWE-CCMP][ESS]",
        "WPA-PSK/WPA2-PSK, [WPA-PSK-TKIP][WPA2-PSK-CCMP+TKIP][ESS]",
        "WPA2-PSK/WPA3-SAE, [WPA2-PSK+SAE-CCMP][ESS]",
        "WPA2-DPP-CCMP, [WPA2-DPP-CCMP][ESS]",
        "WPA2-PSK, [WPA2-PSK-CC",
    })
    void isPutIntoWords(String words, String flags) {
        assertEquals(words, Security.words(flags));
    }
}
