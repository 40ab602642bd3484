/* The lock protocol of the settings and of the refresh watchdog. README.md says what is covered and how to
 * run it; `check` runs it.
 *
 * One statement is one lock operation or one access to data that other threads use. A wait that is bounded
 * in the code may end here at any time while the lock is held. So a wake-up needs no model: every signal
 * is looked at again after each wait. */

/* ---- Size and faults, all to be set with -D */
#ifndef PROCESSES
#define PROCESSES 2
#endif
#ifndef CALLERS
#define CALLERS 1       /* threads that call operations, in each process */
#endif
#ifndef CALLS
#define CALLS 2         /* operations that each of them calls */
#endif
#ifndef CALLS_FIRST
#define CALLS_FIRST CALLS /* the same for the first thread of the first process */
#endif
#ifndef WATCHDOGS
#define WATCHDOGS 2     /* how often the settings of a process may be loaded in place */
#endif
#ifndef SAVES
#define SAVES 1         /* a process saves at most this often */
#endif
#ifndef SAVERS
#define SAVERS PROCESSES /* only the first processes save */
#endif
#ifndef DEATHS
#define DEATHS 0        /* processes that die, at any statement */
#endif
#ifndef STOPS
#define STOPS 0         /* processes that are stopped for ever, while they hold a shared lock */
#endif
#ifndef FOREIGN
#define FOREIGN 0       /* saves by a process whose inside is not modelled */
#endif
/* FOREIGN_LOCKS: that process also holds the block mutex from time to time */
#ifndef TIMEOUTS
#define TIMEOUTS 1      /* 1: a shared lock may time out at any time; 0: only while its holder is stopped */
#endif
#ifndef IDLE
#define IDLE 1          /* rounds without work of each refresh thread */
#endif
#define LOCK_UNLOCK 1   /* getInstance, lockSettings, unlockSettings */
#define SAVE 2
#define REFRESH 4
#define REFRESH_LOCKED 8
#define UNLOAD 16
#define RELOAD 32
#define UNLOAD_LOCKED 64
#define RELOAD_LOCKED 128 /* lockSettings, reload, unlockSettings */
#ifndef OPERATIONS
#define OPERATIONS 255  /* the sum of those that may be called */
#endif
#ifndef OPERATIONS_REST
#define OPERATIONS_REST OPERATIONS /* the same for every process but the first */
#endif

#define DOGS (PROCESSES * WATCHDOGS)
#define BLOCKS (DOGS + 2)                         /* block 0 is none */
#define DOG(p, n) ((p) * WATCHDOGS + (n) - 1)     /* n counts from 1 */
#define DOG_OF(p) DOG(p, watchdog[p])
#define THREAD(p, k) (((p) + 1) * 16 + (k))       /* 0 is no thread; k: callers from 1, refresh from 8 */
#define PROCESS_OF(t) ((t) / 16 - 1)
#define USES(q, b) (watchdog[q] != 0 && block[DOG_OF(q)] == b)
#define NO_SENDER 255
#define FOREIGN_SENDER 254

#define STEP_GET 1
#define STEP_LOCK 2
#define STEP_REFRESH 3
#define STEP_UNLOAD 4
#define STEP_RELOAD 5

/* ---- What processes share */
typedef Block {
  bool mark;                                      /* set up, and not ended */
  byte attachCount;
  bool pending; byte sender;                      /* the refresh signal */
  byte blockMutex; byte blockDepth; bool blockDied;   /* holder; its locks; whether a holder died */
  byte signalMutex; bool signalDied;
  byte users                                      /* ghost: watchdogs that are attached and not dead */
}
Block B[BLOCKS];
byte name;                                        /* the block that "/wifi_shmem" names, or 0 */
byte nextBlock = 1;
byte folder;                                      /* holder of the lock of the folder */

/* ---- The settings of each process: one instance */
bool isActive[PROCESSES];
bool hasList[PROCESSES];
byte watchdog[PROCESSES];                         /* the number of the one that it has, or 0 */
byte watchdogsMade[PROCESSES];
byte savesLeft[PROCESSES];
byte gate[PROCESSES]; byte gateDepth[PROCESSES];
byte listLock[PROCESSES]; byte listDepth[PROCESSES];
byte settingsLock[PROCESSES]; byte settingsDepth[PROCESSES];

/* ---- Each watchdog */
bool exists[DOGS];                                /* constructed, and not destroyed */
byte block[DOGS];
byte runMutex[DOGS]; byte runDepth[DOGS];
bool threadStarted[DOGS]; bool begun[DOGS];
bool stopSignal[DOGS]; bool saveSignal[DOGS];
bool destroyedPtr[DOGS];                          /* the pointer to the flag on the thread's stack is set */
bool destroyedFlag[DOGS];                         /* that flag */

/* ---- Processes that fail */
#define RUNS 0
#define DEAD 1
#define STOPPED 2
byte state[PROCESSES];
byte callersDone;

/* ---- Ghosts: which saves still have to reach which process. A bit is a save. */
byte saved;                                       /* all saves so far */
byte toAnnounce[PROCESSES];                       /* own saves without a raised signal */
byte toTake[PROCESSES];                           /* announced by a signal that is to be taken */
byte toLoad[PROCESSES];                           /* announced by a signal that was taken: a reload is owed */

#if DEATHS + STOPS > 0
#define MAY_FAIL unless { state[p] != RUNS }
#else
#define MAY_FAIL
#endif

/* ---- Locks */
#define LOCK(owner, depth) atomic { (owner == 0 || owner == me) -> owner = me; depth++ }
#define UNLOCK(owner, depth) assert(owner == me && depth > 0); depth--; \
  if :: depth == 0 -> owner = 0 :: else fi
#ifdef BUG_WAIT_SHARED
#define TIMES_OUT(owner) false
#elif TIMEOUTS
#define TIMES_OUT(owner) (owner != 0 && owner != me)
#else
#define TIMES_OUT(owner) (HELD_BY_STOPPED(owner) && owner != me)
#endif
#define HELD_BY_STOPPED(t) (t != 0 && t != FOREIGN_SENDER && state[PROCESS_OF(t)] == STOPPED)
#define FREE(b) (B[b].signalMutex == 0 && B[b].blockMutex == 0)

/* Each sets `got`. The next holder after one that died raises a signal without a sender. */
inline lockBlock(b) {
  if
  :: atomic { (B[b].blockMutex == 0 || B[b].blockMutex == me) ->
       B[b].blockMutex = me; B[b].blockDepth++; got = 1;
       if :: B[b].blockDied -> raiseAfterOwnerDied(b); B[b].blockDied = 0 :: else fi }
  :: atomic { TIMES_OUT(B[b].blockMutex) -> got = 0 }
  fi
}
inline unlockBlock(b) { d_step { UNLOCK(B[b].blockMutex, B[b].blockDepth) } }
inline raiseAfterOwnerDied(b) {
#ifndef BUG_NO_RAISE_AFTER_DEATH
  B[b].pending = 1; B[b].sender = NO_SENDER
#else
  skip
#endif
}
inline lockSignal(b) {
  if
  :: atomic { B[b].signalMutex == 0 -> assert(B[b].mark);
       B[b].signalMutex = me; died = B[b].signalDied; got = 1 }
  :: atomic { TIMES_OUT(B[b].signalMutex) -> got = 0 }
  fi;
  if
  :: died ->
     lockBlock(b);
#ifdef BUG_RECOVERY_TIMES_OUT
     if :: got -> d_step { raiseAfterOwnerDied(b) } :: else fi;
#else
     d_step { raiseAfterOwnerDied(b) };           /* without the block mutex, too */
#endif
     if :: got -> unlockBlock(b) :: else fi;
     d_step { B[b].signalDied = 0; died = 0; got = 1 }
  :: else
  fi
}
inline unlockSignal(b) { d_step { assert(B[b].signalMutex == me); B[b].signalMutex = 0 } }

/* ---- The shared block */
inline join(b) {                                  /* SharedSignalBlock::join */
  joined = false; got = 1;
  if
  :: B[b].mark ->
     lockBlock(b);
     if
     :: got ->
        d_step { if :: B[b].attachCount != 0 -> B[b].attachCount++; B[b].users++; block[x] = b; joined = true
                    :: else fi };
        unlockBlock(b)
     :: else
     fi
  :: else
  fi
}
inline unlinkStale(b) {                           /* `got`: whether the lock of the folder was free */
  if
  :: atomic { folder == 0 -> folder = me; got = 1 }
  :: atomic { TIMES_OUT(folder) -> got = 0 }
  fi;
  if
  :: got ->
     assert(!B[b].mark || B[b].attachCount == 0); /* a block in use keeps its name */
     if :: name == b -> name = 0 :: else fi;
     folder = 0
  :: else
  fi
}
inline publish() {                                /* a block that did not get the name was never seen */
  d_step {
    if
    :: name == 0 ->
       b = nextBlock; nextBlock++; assert(b < BLOCKS);
       B[b].mark = 1; B[b].attachCount = 1; B[b].pending = 0; B[b].sender = NO_SENDER;
       name = b; block[x] = b; B[b].users = 1; joined = true
    :: else
    fi }
}
inline attach() {                                 /* SharedMemory::attach */
  do
  :: b = name;
     if
     :: b != 0 ->
        join(b);
        if :: joined -> break :: else fi;
#ifndef BUG_BUSY_LOSES_NAME
        if :: !got -> break :: else fi;           /* runs without the block */
#endif
        unlinkStale(b);
        if :: !got -> break :: else fi
     :: else ->
        publish();
        if :: joined -> break :: else fi
     fi
  od;
  atomic { b = 0; joined = 0; got = 0 }
}
inline leave() {                                  /* wifiShmemDestroy, SharedSignalBlock::leave */
  if
  :: block[x] != 0 ->
     name = 0;
     lockBlock(block[x]);
     d_step {
       b = block[x];
       assert(B[b].attachCount >= B[b].users && B[b].users > 0);
       if
       :: got && B[b].attachCount == 1 ->         /* the last user ends it */
          assert(B[b].signalMutex == 0);
          B[b].attachCount = 0; B[b].pending = 0; B[b].sender = NO_SENDER; B[b].mark = 0
       :: got && B[b].attachCount > 1 -> B[b].attachCount--
       :: !got                                    /* the count stays too high, the block never ends */
       fi;
       B[b].users--;
       if :: got -> B[b].blockDepth = 0; B[b].blockMutex = 0 :: else fi;
       block[x] = 0; toTake[p] = 0; b = 0; got = 0
     }
  :: else
  fi
}

/* ---- The watchdog */
inline makeWatchdog() {
  d_step {
    assert(gate[p] == me && watchdog[p] == 0 && !hasList[p]);
    for (i : 1 .. WATCHDOGS) { assert(!exists[DOG(p, i)]) }   /* one at a time */
    i = 0;
    watchdogsMade[p]++; watchdog[p] = watchdogsMade[p]; assert(watchdog[p] <= WATCHDOGS);
    x = DOG_OF(p); exists[x] = 1
  };
  attach();
  atomic { run Refresh(p, watchdog[p]); threadStarted[x] = 1 };
#ifndef BUG_NO_WAIT_FOR_BEGIN
  (begun[x])
#else
  skip
#endif
}
inline stopThread() {
  if
  :: atomic { threadStarted[x] -> assert(exists[x]); stopSignal[x] = 1 };
     atomic { (runMutex[x] == 0 || runMutex[x] == me) -> threadStarted[x] = 0 }   /* taken and released */
  :: else
  fi
}
inline deleteWatchdog() {
  stopThread();
  LOCK(runMutex[x], runDepth[x]);
  leave();
  d_step {
    runMutex[x] = 0; runDepth[x] = 0;
    if :: destroyedPtr[x] -> destroyedFlag[x] = 1 :: else fi;
    exists[x] = 0; begun[x] = 0; stopSignal[x] = 0; saveSignal[x] = 0; destroyedPtr[x] = 0;
    toAnnounce[p] = 0; toLoad[p] = 0              /* excused: what was not announced in time */
  }
}

/* ---- The settings. Behind the gate each lock is free or the caller's own: asserted. */
#define OWN_OR_FREE(owner) assert(owner == 0 || owner == me)
inline load() {                                   /* initializeSettings: its first answer is as old as `s` */
  s = saved;
  atomic {
    OWN_OR_FREE(settingsLock[p]); assert(gate[p] == me);
    if
    :: !hasList[p] -> ok = 0
    :: hasList[p] -> ok = 1; toTake[p] = toTake[p] & ~s; toLoad[p] = toLoad[p] & ~s
#ifdef LOADS_FAIL
    :: hasList[p] -> ok = 0
#endif
    fi; s = 0 }
}
inline discardState() {
  if
  :: watchdog[p] != 0 ->
     d_step { x = DOG_OF(p); watchdog[p] = 0 };
     stopThread(); deleteWatchdog()
  :: else
  fi;
  d_step { OWN_OR_FREE(listLock[p]); hasList[p] = 0; listLock[p] = 0; listDepth[p] = 0 }
}
inline lockGate() { LOCK(gate[p], gateDepth[p]) }
inline unlockGate() { UNLOCK(gate[p], gateDepth[p]) }
inline loadInPlace() {                            /* the caller discards what failed to load */
  makeWatchdog();
  hasList[p] = 1;
  load()
}
inline lockBehindGate() {
  assert(isActive[p] && gate[p] == me);
  if :: hasList[p] -> OWN_OR_FREE(listLock[p]); listLock[p] = me; listDepth[p]++ :: else fi;
  OWN_OR_FREE(settingsLock[p]); settingsLock[p] = me; settingsDepth[p]++
}
inline unlockSettings() {                         /* a list that is newer than the lock is not held */
  d_step {
    assert(settingsLock[p] == me && gate[p] == me);
    settingsDepth[p]--; if :: settingsDepth[p] == 0 -> settingsLock[p] = 0 :: else fi;
    if
    :: hasList[p] && listDepth[p] > 0 -> assert(listLock[p] == me);
       listDepth[p]--; if :: listDepth[p] == 0 -> listLock[p] = 0 :: else fi
    :: else
    fi;
    gateDepth[p]--; if :: gateDepth[p] == 0 -> gate[p] = 0 :: else fi }
}
inline saveChanges() {                            /* the caller holds the three locks */
  if
  :: hasList[p] && savesLeft[p] > 0 ->
     d_step { savesLeft[p]--; saved = saved | (1 << (p * SAVES + savesLeft[p]));
       toAnnounce[p] = toAnnounce[p] | (1 << (p * SAVES + savesLeft[p])) };
     assert(watchdog[p] != 0 && exists[DOG_OF(p)]);
     saveSignal[DOG_OF(p)] = 1
  :: else
  fi
}
/* The bound of the model, not of the code: only as often as there are watchdogs left to be made. */
#define MAY_UNLOAD (watchdogsMade[p] < WATCHDOGS)
#ifdef BUG_NO_SECOND_LOOK
#define LOADS_IN_PLACE (step != STEP_UNLOAD && step != STEP_LOCK)
#else
#define LOADS_IN_PLACE (step != STEP_UNLOAD)
#endif
/* getInstance, lockSettings, refreshAllSettings, unload and reload share this form: lock the gate, empty the
 * settings, load them where they are empty, leave the gate. lockSettings keeps it. */
inline takeStep() {
  atomic {
    lockGate();
    empties = (step == STEP_UNLOAD || step == STEP_RELOAD) && isActive[p] && MAY_UNLOAD
  };
  if
  :: empties -> discardState(); atomic { isActive[p] = 0; empties = 0 }
  :: else
  fi;
  ok = 1;
  if
  :: !isActive[p] && LOADS_IN_PLACE -> loadInPlace()
  :: isActive[p] && step == STEP_REFRESH -> load()
  :: else
  fi;
  if :: !ok -> discardState() :: else fi;
  d_step {
    ok = 0;
    if :: LOADS_IN_PLACE -> isActive[p] = 1 :: else fi;
    if :: step == STEP_LOCK -> lockBehindGate() :: else -> unlockGate() fi
  }
}

/* ---- The refresh thread */
inline announce(b) {                              /* the signal is raised: the others have to take it */
  for (i : 0 .. PROCESSES - 1) {
    if :: i != p && USES(i, b) -> toTake[i] = toTake[i] | toAnnounce[p] :: else fi };
  i = 0; toAnnounce[p] = 0
}
inline notifyPeers() {                            /* `got`: false when it is owed */
  if
  :: block[x] == 0 -> d_step { toAnnounce[p] = 0; got = 1 }   /* excused: runs without the block */
  :: else ->
     lockSignal(block[x]);
     if
     :: got ->
        lockBlock(block[x]);
        if
        :: got ->
           d_step { b = block[x];
#ifndef STRICT
             if :: B[b].pending && B[b].sender != me -> toTake[p] = 0 :: else fi;   /* excused: replaced */
#endif
             B[b].pending = 1; B[b].sender = me; announce(b); b = 0 };
           unlockBlock(block[x])
        :: else
        fi;
        unlockSignal(block[x])
     :: else
     fi
  fi
}
inline checkForRefreshSignal() {                  /* `took` */
  if
  :: block[x] != 0 ->
     lockSignal(block[x]);                        /* as after the wait; before it, the lock changes nothing */
     if
     :: got ->
        lockBlock(block[x]);
        if
        :: got ->
           d_step { b = block[x];
             if
             :: B[b].pending && B[b].sender != me ->
                took = 1; B[b].pending = 0;
                toLoad[p] = toLoad[p] | toTake[p]; toTake[p] = 0;
#ifndef STRICT
                for (i : 0 .. PROCESSES - 1) {    /* excused: the first thread takes it */
                  if :: USES(i, b) -> toTake[i] = 0 :: else fi };
                i = 0
#endif
             :: else
             fi; b = 0 };
           unlockBlock(block[x])
        :: else
        fi;
        unlockSignal(block[x])
     :: else
     fi
  :: else
  fi
}
inline refreshSettings() {                        /* `got`: false when the gate could not be had */
  if
  :: atomic { gate[p] == 0 -> gate[p] = me; gateDepth[p] = 1; got = 1;
       assert(isActive[p]); assert(watchdog[p] != 0 && x == DOG_OF(p)) }   /* it never makes an instance */
#ifndef BUG_WAIT_GATE
  :: atomic { gate[p] != 0 -> assert(gate[p] != me); got = 0 }
#endif
  fi;
  if
  :: got ->                                       /* refreshAllSettings */
     load();
     if :: !ok -> discardState() :: else fi;
     d_step { unlockGate(); got = 1 }
  :: else
  fi
}
/* A round without work changes nothing. There are IDLE of them, and any number with work. */
#define HAS_WORK (stopSignal[x] || saveSignal[x] \
  || (block[x] != 0 && FREE(block[x]) && (notifyAgain || B[block[x]].blockDied || B[block[x]].signalDied \
      || (B[block[x]].pending && B[block[x]].sender != me))) \
  || (reloadAgain && gate[p] == 0))
proctype Refresh(byte p; byte n) {
  byte me, x, b, s, i, idle = IDLE;
  bool ok, got, joined, died, took, hasSaved, notifyAgain, reloadAgain;
  { d_step { me = THREAD(p, 7 + n); x = DOG(p, n) };
    atomic { runMutex[x] == 0 -> assert(exists[x]);
      runMutex[x] = me; runDepth[x] = 1; destroyedPtr[x] = 1; begun[x] = 1 };
end_idle:
    do
    :: atomic { (HAS_WORK || idle > 0) -> if :: HAS_WORK :: else -> idle-- fi;
         assert(exists[x]);
         if :: stopSignal[x] -> stopSignal[x] = 0; goto stopped :: else fi };
       d_step { hasSaved = saveSignal[x]; saveSignal[x] = 0 };
       if
       :: hasSaved || notifyAgain -> notifyPeers(); notifyAgain = !got
#ifdef BUG_NOTIFY_NOT_OWED
          ; notifyAgain = 0
#endif
       :: else
       fi;
       if
       :: !hasSaved ->
          checkForRefreshSignal();
          if
          :: took || reloadAgain -> refreshSettings(); reloadAgain = !got
#ifdef BUG_REFRESH_NOT_OWED
             ; reloadAgain = 0
#endif
          :: else
          fi
       :: else
       fi;
       atomic {
         hasSaved = 0; took = 0; got = 0; ok = 0;
#ifndef BUG_FLAG_IGNORED
         if :: destroyedFlag[x] -> goto destroyed :: else fi
#else
         skip
#endif
       }
    od;
stopped:
    atomic { assert(exists[x] && runMutex[x] == me && runDepth[x] == 1);
      destroyedPtr[x] = 0; runMutex[x] = 0; runDepth[x] = 0 };
destroyed: skip
  } MAY_FAIL
}

/* ---- A thread that calls operations, at any time and beside any other */
#define CALLED(operation) ((p == 0 -> OPERATIONS : OPERATIONS_REST) & operation)
proctype Caller(byte p; byte k) {
  byte me, x, b, s, i, left, step, next;
  bool ok, got, joined, died, empties, holds, saves;
  { d_step { me = THREAD(p, 1 + k); left = (p == 0 && k == 0 -> CALLS_FIRST : CALLS) };
    do
    :: left > 0 ->
       atomic {
         left--;
         if
         :: CALLED(LOCK_UNLOCK) -> step = STEP_GET; next = STEP_LOCK
         :: CALLED(SAVE) && savesLeft[p] > 0 -> step = STEP_LOCK; saves = 1
         :: CALLED(REFRESH) -> step = STEP_REFRESH
         :: CALLED(REFRESH_LOCKED) -> step = STEP_LOCK; next = STEP_REFRESH
         :: CALLED(UNLOAD) && MAY_UNLOAD -> step = STEP_UNLOAD
         :: CALLED(RELOAD) && MAY_UNLOAD -> step = STEP_RELOAD
         :: CALLED(UNLOAD_LOCKED) && MAY_UNLOAD -> step = STEP_LOCK; next = STEP_UNLOAD
         :: CALLED(RELOAD_LOCKED) && MAY_UNLOAD -> step = STEP_LOCK; next = STEP_RELOAD
         fi };
       do
       :: step == 0 -> break
       :: step == STEP_GET && isActive[p] -> step = next; next = 0   /* without a lock */
       :: else ->
          takeStep();
          d_step { if :: step == STEP_LOCK -> holds = 1 :: else fi;
            step = next; next = 0; x = 0; ok = 0; got = 0 };
          if :: saves -> saveChanges(); saves = 0 :: else fi
       od;
       if :: holds -> unlockSettings(); holds = 0 :: else fi
    :: left == 0 -> break
    od
  } MAY_FAIL;
  callersDone++
}

/* ---- Failing processes. The kernel releases the robust mutexes of a dead one, and nothing of a stopped. */
#define ALL_DONE (callersDone == PROCESSES * CALLERS)
#define HOLDS(t, q) (t != 0 && t != FOREIGN_SENDER && PROCESS_OF(t) == q)
inline die(q) {
  state[q] = DEAD;
  for (b : 1 .. BLOCKS - 1) {
    if
    :: HOLDS(B[b].blockMutex, q) || HOLDS(B[b].signalMutex, q) ->
       for (i : 0 .. PROCESSES - 1) {             /* the signal is raised once more: the others have to take it */
         if :: i != q && USES(i, b) -> toTake[i] = toTake[i] | saved :: else fi }
    :: else
    fi;
#ifndef BUG_NOT_ROBUST
    if :: HOLDS(B[b].blockMutex, q) -> B[b].blockMutex = 0; B[b].blockDepth = 0; B[b].blockDied = 1 :: else fi;
    if :: HOLDS(B[b].signalMutex, q) -> B[b].signalMutex = 0; B[b].signalDied = 1 :: else fi
#endif
  };
  if :: HOLDS(folder, q) -> folder = 0 :: else fi;
  for (i : 1 .. WATCHDOGS) {
    if :: block[DOG(q, i)] != 0 -> B[block[DOG(q, i)]].users--; block[DOG(q, i)] = 0 :: else fi };
  i = 0; b = 0
}
inline holdsShared(q) {
  held = HOLDS(folder, q);
  for (b : 1 .. BLOCKS - 1) {
    held = held || HOLDS(B[b].blockMutex, q) || HOLDS(B[b].signalMutex, q) };
  b = 0
}
proctype Failures() {
  byte q, b, i, deaths = DEATHS, stops = STOPS;
  bool held;
end_failures:
  do
  :: deaths > 0 && !ALL_DONE ->
     atomic { select(q : 0 .. PROCESSES - 1); deaths--;
       if :: state[q] != DEAD -> die(q) :: else fi; q = 0 }
  :: atomic { stops > 0 && !ALL_DONE -> select(q : 0 .. PROCESSES - 1); holdsShared(q);
       if :: held && state[q] == RUNS -> stops--; state[q] = STOPPED :: else fi; held = 0; q = 0 }
  :: deaths + stops == 0 || ALL_DONE -> break
  od
}

/* ---- A process whose inside is not modelled: it saves, and raises the signal in one step */
proctype Foreign() {
  byte i, left = FOREIGN;
end_foreign:
  do
  :: atomic { left > 0 && name != 0 && B[name].mark && FREE(name) && !B[name].blockDied && !B[name].signalDied ->
       left--; saved = saved | (1 << (PROCESSES * SAVES + left));
       B[name].pending = 1; B[name].sender = FOREIGN_SENDER;
       for (i : 0 .. PROCESSES - 1) {
         if :: USES(i, name) -> toTake[i] = toTake[i] | (1 << (PROCESSES * SAVES + left)) :: else fi };
       i = 0 }
#ifdef FOREIGN_LOCKS
  :: atomic { name != 0 && B[name].mark && B[name].blockMutex == 0 && !B[name].blockDied && !ALL_DONE ->
       i = name; B[i].blockMutex = FOREIGN_SENDER };
     atomic { B[i].blockMutex = 0; i = 0 }
#endif
  :: left == 0 || ALL_DONE -> break
  od
}

/* ---- When nothing moves any more, every save has been announced, taken and loaded. What a process that is
 * stopped keeps locked can be neither announced nor taken. */
#define STUCK(b) (HELD_BY_STOPPED(B[b].blockMutex) || HELD_BY_STOPPED(B[b].signalMutex))
proctype Quiet() {
  byte q, b;
  timeout;
  d_step {
    for (q : 0 .. PROCESSES - 1) {
      if
      :: state[q] == RUNS && isActive[q] && watchdog[q] != 0 ->
         assert(hasList[q] && threadStarted[DOG_OF(q)] && gate[q] == 0);
         assert(toLoad[q] == 0);
         b = block[DOG_OF(q)];
         if :: b != 0 && !STUCK(b) -> assert(toAnnounce[q] == 0); assert(toTake[q] == 0) :: else fi
      :: else
      fi }
  }
}
init {
  byte q, k;
  atomic {
    for (q : 0 .. PROCESSES - 1) {
      if :: q < SAVERS -> savesLeft[q] = SAVES :: else fi;
      for (k : 0 .. CALLERS - 1) { run Caller(q, k) } }
    for (q : 0 .. BLOCKS - 1) { B[q].sender = NO_SENDER }
    if :: DEATHS + STOPS > 0 -> run Failures() :: else fi;
#ifdef FOREIGN_LOCKS
    run Foreign();
#endif
    if :: FOREIGN > 0 -> run Foreign() :: else fi;
    run Quiet();
    q = 0; k = 0
  }
}
