# The Java native interface is headers only: the library never links a virtual machine, and a cross
# build uses the host's headers. Sets JNI_HEADER_DIRS. The headers come from the JDK whose compiler makes the jar, if
# there is one; they need no compiler themselves.
find_program(JAVAC javac)
set(JNI_PLACES $ENV{JAVA_HOME}/include /usr/lib/jvm/default-java/include)
if(JAVAC)
  file(REAL_PATH ${JAVAC} javac)
  cmake_path(GET javac PARENT_PATH javac_bin)
  cmake_path(GET javac_bin PARENT_PATH java_home)
  list(PREPEND JNI_PLACES ${java_home}/include)
endif()
find_path(JNI_H jni.h HINTS ${JNI_PLACES} NO_CMAKE_FIND_ROOT_PATH)
platwifi_need("${JNI_H}" "jni.h" default-jdk-headless "-DPLATWIFI_NATIVES=OFF")
find_path(JNI_MD_H jni_md.h HINTS ${JNI_H}/linux NO_CMAKE_FIND_ROOT_PATH)
platwifi_need("${JNI_MD_H}" "jni_md.h" default-jdk-headless "-DPLATWIFI_NATIVES=OFF")
set(JNI_HEADER_DIRS ${JNI_H} ${JNI_MD_H})
