# The Java native interface is headers only: the library never links a virtual machine, and a cross
# build uses the host's headers. Sets JNI_HEADER_DIRS.
find_program(JAVAC javac REQUIRED)
file(REAL_PATH ${JAVAC} javac)
cmake_path(GET javac PARENT_PATH javac_bin)
cmake_path(GET javac_bin PARENT_PATH java_home)
find_path(JNI_H jni.h HINTS ${java_home}/include REQUIRED NO_CMAKE_FIND_ROOT_PATH)
find_path(JNI_MD_H jni_md.h HINTS ${java_home}/include/linux REQUIRED NO_CMAKE_FIND_ROOT_PATH)
set(JNI_HEADER_DIRS ${JNI_H} ${JNI_MD_H})
