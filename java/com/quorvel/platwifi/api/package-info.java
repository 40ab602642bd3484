/**
 * The Wi-Fi of the host, with types: scan, join, configure, and listen to events.
 *
 * <p>{@link com.quorvel.platwifi.api.Wifi} is where a program begins:
 *
 * <pre>{@code
 * try (Wifi wifi = Wifi.open("wlan0")) {
 *     for (AccessPoint ap : wifi.scan())
 *         System.out.println(ap.ssid() + " " + ap.signal() + " dBm " + ap.security());
 *     Connection link = wifi.join("home", Passphrase.of(chars)).get(30, TimeUnit.SECONDS);
 * } catch (WifiException e) {
 *     System.err.println(e.reason() + ": " + e.getMessage());
 * }
 * }</pre>
 *
 * <p>Every failure is a {@link com.quorvel.platwifi.api.WifiException} with a
 * {@link com.quorvel.platwifi.api.Reason} and a message that names the next step. All classes may be
 * used by any number of threads at the same time, except builders, and the blocks of
 * {@link com.quorvel.platwifi.api.Wifi#edit}. No parameter may be null unless its description says so; a null is
 * a {@link java.lang.NullPointerException}.
 */
package com.quorvel.platwifi.api;
