package lab;

import static lab.Wifi.WLAN;

import com.quorvel.platwifi.BWifiPlatformService;
import com.quorvel.platwifi.PlatformCrypt;

import java.util.ArrayList;
import java.util.List;
import java.util.stream.Collectors;

/** A network to configure: its settings, and their lines in the configuration file. */
final class Network {
    interface TextSetter {
        boolean set(String iface, String ssid, String value);
    }

    interface NumberSetter {
        boolean set(String iface, String ssid, int value);
    }

    private interface Setting {
        boolean make();
    }

    final String title;
    final String ssid;

    private final List<Setting> settings = new ArrayList<>();
    private final List<String> lines = new ArrayList<>();

    Network(String title, String ssid) {
        this(title, ssid, quoted(ssid));
    }

    /** @param ssidInFile  the SSID as the supplicant writes it */
    Network(String title, String ssid, String ssidInFile) {
        this.title = title;
        this.ssid = ssid;
        lines.add("ssid=" + ssidInFile);
    }

    Network with(NumberSetter setter, int value, String... expected) {
        return with(() -> setter.set(WLAN, ssid, value), expected);
    }

    Network text(TextSetter setter, String key, String value) {
        return with(() -> setter.set(WLAN, ssid, value), key + "=" + quoted(value));
    }

    /** For a setter that takes the value enciphered. */
    Network secret(TextSetter setter, String key, String value) {
        return with(() -> setter.set(WLAN, ssid, PlatformCrypt.encrypt(value)),
                key + "=" + quoted(value));
    }

    Network wepKey(int index, String key, String expected) {
        return with(() -> BWifiPlatformService.setWepKey0(WLAN, ssid, index, key),
                "wep_key" + index + "=" + expected);
    }

    Network hidden() {
        return with(() -> BWifiPlatformService.setSsidBroadcasted0(WLAN, ssid, false),
                "scan_ssid=1");
    }

    /** Further lines in the configuration file. */
    Network lines(String... expected) {
        lines.addAll(List.of(expected));
        return this;
    }

    /** Without the line of the file that begins like this. */
    Network without(String beginning) {
        lines.removeIf(line -> line.startsWith(beginning));
        return this;
    }

    /** Adds and sets it. @return whether it was added and every setter returned true */
    boolean add() {
        return BWifiPlatformService.addNetwork0(WLAN, ssid)
                && settings.stream().filter(setting -> !setting.make()).count() == 0;
    }

    /** Its lines in the configuration file, sorted. */
    List<String> block() {
        return lines.stream().sorted().collect(Collectors.toList());
    }

    private Network with(Setting setting, String... expected) {
        settings.add(setting);
        return lines(expected);
    }

    static String quoted(String text) {
        return '"' + text + '"';
    }
}
