package com.quorvel.platwifi;

import static org.junit.jupiter.api.Assertions.assertEquals;

import org.junit.jupiter.api.Test;

import java.lang.reflect.Method;
import java.lang.reflect.Modifier;
import java.util.Set;
import java.util.TreeSet;
import java.util.stream.Collectors;
import java.util.stream.Stream;

/** The names and parameters of the natives, to which the library is bound. */
class NativeMethodsTest {
    private static final int KIND = Modifier.PUBLIC | Modifier.STATIC | Modifier.NATIVE;
    private static final Set<String> METHODS = Set.of(
        "int getAuthentication0(String, String)",
        "boolean getSsidBroadcasted0(String, String)",
        "int getEAPMethod0(String, String)",
        "int getProtocol0(String, String)",
        "int getKeyManagement0(String, String)",
        "int getPriority0(String, String)",
        "int getNetworkMode0(String, String)",
        "int getChannel0(String, String)",
        "int getStrength0(String, String)",
        "int getWepIndex0(String, String)",
        "int getSupportedEncrytptionMethods0(String, String)",
        "int getNetworkStatus0(String, String)",
        "String getBssid0(String, String)",
        "String getEAPIdentity0(String, String)",
        "String getEAPAnonymousIdentity0(String, String)",
        "String getTunnelPhase10(String, String)",
        "String getTunnelPhase20(String, String)",
        "String getCACertificate0(String, String)",
        "String getCACertificateDir0(String, String)",
        "String getClientCertificate0(String, String)",
        "String getPrivateKeyFile0(String, String)",
        "String getCACertificate20(String, String)",
        "String getCACertificateDir20(String, String)",
        "String getClientCertificate20(String, String)",
        "String getPrivateKeyFile20(String, String)",
        "String getPreSharedKey0(String, String)",
        "String getEAPPassword0(String, String)",
        "String getPrivateKeyPassword0(String, String)",
        "String getPrivateKeyPassword20(String, String)",
        "boolean setSsid0(String, String, String)",
        "boolean setPreferredBssid0(String, String, String)",
        "boolean setEAPIdentity0(String, String, String)",
        "boolean setEAPAnonymousIdentity0(String, String, String)",
        "boolean setTunnelPhase10(String, String, String)",
        "boolean setTunnelPhase20(String, String, String)",
        "boolean setCACertificate0(String, String, String)",
        "boolean setCACertificateDir0(String, String, String)",
        "boolean setClientCertificate0(String, String, String)",
        "boolean setPrivateKeyFile0(String, String, String)",
        "boolean setCACertificate20(String, String, String)",
        "boolean setCACertificateDir20(String, String, String)",
        "boolean setClientCertificate20(String, String, String)",
        "boolean setPrivateKeyFile20(String, String, String)",
        "boolean setAuthentication0(String, String, int)",
        "boolean setKeyManagement0(String, String, int)",
        "boolean setProtocol0(String, String, int)",
        "boolean setEAPMethod0(String, String, int)",
        "boolean setNetworkStatus0(String, String, int)",
        "boolean setSignalStrength0(String, String, int)",
        "boolean setPriority0(String, String, int)",
        "boolean setNetworkMode0(String, String, int)",
        "boolean setWepIndex0(String, String, int)",
        "boolean setSsidBroadcasted0(String, String, boolean)",
        "boolean setEncryption0(String, String, int)",
        "boolean setWepKey0(String, String, int, String)",
        "boolean setPreSharedKey0(String, String, String)",
        "boolean setEAPPassword0(String, String, String)",
        "boolean setPrivateKeyPassword0(String, String, String)",
        "boolean setPrivateKeyPassword20(String, String, String)",
        "boolean connectToNetwork0(String, String)",
        "boolean disconnectFromNetwork0(String, String)",
        "boolean addNetwork0(String, String)",
        "boolean removeNetwork0(String, String)",
        "boolean roamNetworks0(String)",
        "boolean saveHostSettings0()",
        "int getDaemonStatus0(String)",
        "String getCurrentNetwork0(String)",
        "boolean unloadWifiSettings0()",
        "boolean hashCACertificates0()",
        "boolean isWifiEnabled0(String)",
        "String[] getWifiAdapters0()",
        "String[] discoverNetworks0(String)",
        "String[] getNetworkDatabaseSsids0(String)",
        "String[] getWepKeys0(String, String)");

    // API-3
    @Test
    void areExactlyThese() throws ClassNotFoundException {
        assertEquals(new TreeSet<>(METHODS), methods().map(NativeMethodsTest::signature)
                .collect(Collectors.toCollection(TreeSet::new)));
    }

    @Test
    void areAllPublicStaticAndNative() throws ClassNotFoundException {
        methods().forEach(method -> assertEquals(KIND, method.getModifiers(), method.toString()));
    }

    /** Does not initialise the class, which would load the library. */
    private static Stream<Method> methods() throws ClassNotFoundException {
        ClassLoader loader = NativeMethodsTest.class.getClassLoader();
        return Stream.of(Class.forName("com.quorvel.platwifi.BWifiPlatformService", false, loader)
                .getDeclaredMethods());
    }

    private static String signature(Method method) {
        return method.getReturnType().getSimpleName() + " " + method.getName()
                + Stream.of(method.getParameterTypes()).map(Class::getSimpleName)
                        .collect(Collectors.joining(", ", "(", ")"));
    }
}
