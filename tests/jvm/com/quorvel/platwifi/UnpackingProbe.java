package com.quorvel.platwifi;

import java.nio.file.Path;
import java.util.ArrayList;
import java.util.List;
import java.util.concurrent.CyclicBarrier;

/** A program whose threads unpack the files of the jar at once. It prints what fails. */
public final class UnpackingProbe {
    private static final int THREADS = 8;

    private UnpackingProbe() {}

    public static void main(String[] arguments) throws Exception {
        NativeIndex index = NativeIndex.ofHost();
        Path root = CacheFolders.all().get(0);
        CyclicBarrier start = new CyclicBarrier(THREADS);
        List<Thread> threads = new ArrayList<>();
        for (int i = 0; i < THREADS; i++)
            threads.add(new Thread(() -> unpack(index, root, start)));
        for (Thread thread : threads)
            thread.start();
        for (Thread thread : threads)
            thread.join();
    }

    private static void unpack(NativeIndex index, Path root, CyclicBarrier start) {
        try {
            start.await();
            new Unpacking(index, root).folder();
        } catch (Exception failure) {
            System.out.println(failure);
        }
    }
}
