// Nothing of its own: what belongs to it are the precompiled headers that the tests share.
