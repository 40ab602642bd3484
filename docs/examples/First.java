import com.quorvel.platwifi.BWifiPlatformService;

public class First {
    public static void main(String[] arguments) {
        boolean runs = BWifiPlatformService.isWifiEnabled0("wlan0");
        System.out.println("supplicant runs: " + (runs ? "yes" : "no"));
        String[] adapters = BWifiPlatformService.getWifiAdapters0();
        boolean found = adapters != null && adapters.length > 0;
        System.out.println("first adapter: " + (found ? adapters[0] : "none"));
        BWifiPlatformService.unloadWifiSettings0();
        System.exit(found ? 0 : 1);
    }
}
