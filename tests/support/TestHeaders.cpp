// Empty. Its target has the precompiled headers that the tests share.
