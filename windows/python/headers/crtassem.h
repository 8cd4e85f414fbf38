/* The interpreter takes only the version numbers of a Microsoft assembly from here, and none is used. */
